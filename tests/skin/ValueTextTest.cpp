#include <gtest/gtest.h>

#include "skin/SkinValue.h"
#include "tests/common/QtPrinters.h"

namespace qpt {
namespace {

using Kind = TSkinValue::Kind;

TSkinValue Read(const QString& text) {
    QString error;
    const std::optional<TSkinValue> value = TSkinValue::FromText(text, &error);
    EXPECT_TRUE(value.has_value()) << text.toStdString() << ": " << error.toStdString();
    return value.value_or(TSkinValue());
}

TEST(SkinValueText, ReadsEveryForm) {
    EXPECT_EQ(Read("True"), TSkinValue::Ident("True"));
    EXPECT_EQ(Read("  text_color.cl_text_b "), TSkinValue::Ident("text_color.cl_text_b"));
    EXPECT_EQ(Read("-12"), TSkinValue::Integer(-12));
    EXPECT_EQ(Read("+7"), TSkinValue::Integer(7));
    EXPECT_EQ(Read("$FF"), TSkinValue::Integer(255));
    EXPECT_EQ(Read("$FFFFFFFFFFFFFFFF"), TSkinValue::Integer(-1));
    EXPECT_EQ(Read("-9223372036854775808"), TSkinValue::Integer(INT64_MIN));
    EXPECT_EQ(Read("1.5E3"), TSkinValue::Float(1500));
    EXPECT_EQ(Read("-0.25"), TSkinValue::Float(-0.25));
    EXPECT_EQ(Read("'It''s'#13#10'ok'"), TSkinValue::String("It's\r\nok"));
    EXPECT_EQ(Read("'a' +\r\n  'b'#$41"), TSkinValue::String("abA"));
    EXPECT_EQ(Read("#128512"), TSkinValue::String(QString::fromUtf8("\xF0\x9F\x98\x80")));
    EXPECT_EQ(Read("''"), TSkinValue::String(""));
    EXPECT_EQ(Read("[fsBold,fsItalic ]"), TSkinValue::Set({"fsBold", "fsItalic"}));
    EXPECT_EQ(Read("[]"), TSkinValue::Set({}));
    EXPECT_EQ(Read("{0a 1B}"), TSkinValue::Binary(QByteArray("\x0A\x1B", 2)));
    const TSkinValue list = Read("('one' 'two'\n 3 [x] ())");
    ASSERT_EQ(list.kind, Kind::List);
    EXPECT_EQ(list.items, (QList<TSkinValue>{TSkinValue::String("one"), TSkinValue::String("two"),
                                             TSkinValue::Integer(3), TSkinValue::Set({"x"}),
                                             TSkinValue::List({})}));
}

TEST(SkinValueText, WritesTextThatReadsBackTheSame) {
    const QList<TSkinValue> values = {
        TSkinValue::Ident("clNone"),
        TSkinValue::Integer(INT64_MIN),
        TSkinValue::Float(2),
        TSkinValue::Float(0.1),
        TSkinValue::Float(-1e300),
        TSkinValue::String(""),
        TSkinValue::String("a'b\r\n\tc\x7f"),
        TSkinValue::String(QString(QChar(0xD800)) + QStringLiteral("lone surrogate")),
        TSkinValue::Set({"a", "b"}),
        TSkinValue::Binary(QByteArray("\x00\xFF", 2)),
        TSkinValue::List({TSkinValue::String("x"), TSkinValue::List({TSkinValue::Integer(1)})}),
    };
    for (const TSkinValue& value : values) {
        const QString text = value.ToText();
        EXPECT_EQ(Read(text), value) << text.toStdString();
    }
    EXPECT_EQ(TSkinValue::String("a'b\r\n").ToText(), "'a''b'#13#10");
    EXPECT_EQ(TSkinValue::Float(2).ToText(), "2.0");
    EXPECT_EQ(TSkinValue::Set({"a", "b"}).ToText(), "[a, b]");
    EXPECT_EQ(TSkinValue::List({TSkinValue::String("x"), TSkinValue::Integer(1)}).ToText(),
              "('x' 1)");
}

TEST(SkinValueText, BadInputGivesAReasonNotAValue) {
    const QStringList bad = {"",         "   ",
                             "'open",    "'a' +",
                             "'a' + 3",  "#",
                             "#1114112", "#$",
                             "[a,]",     "[1]",
                             "[a b]",    "(1 2",
                             "(1,2)",    "{ABC}",
                             "{XY}",     "{00",
                             "1.",       "1e",
                             "1e999",    "9223372036854775808",
                             "$",        "$12345678901234567",
                             "abc def",  "@x",
                             "True)",    QString(40, u'(') + QString(40, u')')};
    for (const QString& text : bad) {
        QString error;
        EXPECT_FALSE(TSkinValue::FromText(text, &error).has_value()) << text.toStdString();
        EXPECT_FALSE(error.isEmpty()) << text.toStdString();
    }
    // Nesting up to the limit is still a value.
    EXPECT_TRUE(TSkinValue::FromText(QString(30, u'(') + QString(30, u')')).has_value());
}

}  // namespace
}  // namespace qpt
