#include <gtest/gtest.h>

#include "skin/ColorId.h"
#include "skin/ColorTable.h"
#include "skin/ColorValue.h"
#include "support/color/ColorNames.h"

namespace qpt {
namespace {

TEST(ColorId, IsCrc32OfLowerCasedUtf16WithTopByteForced) {
    EXPECT_EQ(Crc32("123456789"), 0xCBF43926u);
    EXPECT_EQ(ColorId("abc"), 0xFF957AB0u);
    EXPECT_EQ(ColorId("Text_Color.CL_Text_A"), 0xFFC0E84Eu);
    EXPECT_EQ(ColorId("text_color.cl_text_a"), 0xFFC0E84Eu);
}

struct ValueCase {
    const char* text;
    ColorOrder order;
    std::optional<quint32> expected;
};

TEST(ColorValue, EveryFormInBothOrders) {
    const auto RGB = ColorOrder::RGB;
    const auto BGR = ColorOrder::BGR;
    const ValueCase cases[] = {
        {"#FF0000", RGB, 0x0000FF},  // "#" is red first whatever the order
        {"#FF0000", BGR, 0x0000FF},
        {"#80ff0000", RGB, 0x800000FF},  // alpha rides in the top byte
        {"$0000FF", RGB, 0x0000FF},      // "$" is the stored layout
        {"$0000FF", BGR, 0x0000FF},
        {"255,0,0", RGB, 0x0000FF},
        {"255, 0, 0", BGR, 0xFF0000},
        {"FF0000", RGB, 0x0000FF},
        {"C0FF0000", RGB, 0xC00000FF},
        {"123456", BGR, 123456},    // a number first, not the hex form
        {"FF00AA", BGR, 0xFF00AA},  // hex only when it is no number
        {"", RGB, std::nullopt},
        {"#", RGB, std::nullopt},
        {"#12345G", RGB, std::nullopt},
        {"123456789", RGB, std::nullopt},
        {"1,2", RGB, std::nullopt},
        {"1,x,3", RGB, std::nullopt},
        {"blue", BGR, std::nullopt},
    };
    for (const ValueCase& c : cases)
        EXPECT_EQ(ParseColorValue(c.text, c.order), c.expected)
            << c.text << (c.order == RGB ? " RGB" : " BGR");
}

TEST(ColorValue, LinkTargets) {
    EXPECT_EQ(ColorLinkTarget("[a.b]"), QString("a.b"));
    EXPECT_EQ(ColorLinkTarget("[a.b"), QString("a.b"));
    EXPECT_EQ(ColorLinkTarget("a.b"), std::nullopt);
}

quint32 Rgb(TColorTable& table, const QString& name) {
    quint32 id = 0;
    table.IdentToColor(name, id);
    return table.ColorToRGB(id);
}

TEST(ColorTable, LinksResolveAcrossSectionsAndCyclesStayUndefined) {
    TColorTable table;
    const ColorSection sections[] = {
        {"text.",
         {"a=[late.x]", "chain=[text.a]", "open=[late.y", "loop1=[text.loop2]",
          "loop2=[text.loop1]", "dangling=[nowhere.z]", "std=[clRed]"}},
        {"late.", {"x=#102030", "y=$010203"}},
    };
    table.Build(sections);
    EXPECT_EQ(Rgb(table, "text.a"), 0x302010u);
    EXPECT_EQ(Rgb(table, "TEXT.CHAIN"), 0x302010u);
    EXPECT_EQ(Rgb(table, "text.open"), 0x010203u);
    EXPECT_EQ(Rgb(table, "text.std"), 0x0000FFu);
    EXPECT_EQ(Rgb(table, "text.loop1"), TColorTable::kUndefinedColor);
    EXPECT_EQ(Rgb(table, "text.loop2"), TColorTable::kUndefinedColor);
    EXPECT_EQ(Rgb(table, "text.dangling"), TColorTable::kUndefinedColor);
}

TEST(ColorTable, SectionTypeSwitchesOrderAndClassIsNoColour) {
    TColorTable table;
    const ColorSection sections[] = {
        {"bgr.", {"type=bgr", "class=color", "v=FF0000", "empty="}, ColorOrder::RGB},
        {"rgb.", {"type=whatever", "v=FF0000"}, ColorOrder::BGR},
    };
    table.Build(sections);
    EXPECT_EQ(Rgb(table, "bgr.v"), 0xFF0000u);
    EXPECT_EQ(Rgb(table, "rgb.v"), 0x0000FFu);
    EXPECT_EQ(Rgb(table, "bgr.class"), TColorTable::kUndefinedColor);
    EXPECT_EQ(table.NameCount(), 2);
}

TEST(ColorTable, LaterDefinitionWins) {
    TColorTable table;
    const ColorSection sections[] = {{"s.", {"c=#000001"}}, {"s.", {"c=#000002"}}};
    table.Build(sections);
    EXPECT_EQ(Rgb(table, "s.c"), 0x020000u);
    EXPECT_EQ(table.NameCount(), 1);
}

TEST(ColorTable, NameAskedBeforeAnySkinGetsItsValueLater) {
    TColorTable table;
    quint32 id = 0;
    EXPECT_TRUE(table.IdentToColor("panel.cl_back", id));
    EXPECT_EQ(id, ColorId("panel.cl_back"));
    EXPECT_EQ(table.ColorToRGB(id), TColorTable::kUndefinedColor);
    QString name;
    EXPECT_TRUE(table.ColorToIdent(id, name));

    table.MergeVclColor();  // a pending name survives the reset
    const ColorSection sections[] = {{"panel.", {"cl_back=#203040"}}};
    table.Build(sections);
    EXPECT_EQ(table.ColorToRGB(id), 0x403020u);
    ASSERT_TRUE(table.ColorToIdent(id, name));
    EXPECT_EQ(name, "panel.cl_back");

    table.MergeVclColor();  // a new skin without the name: visible gap again
    EXPECT_EQ(table.ColorToRGB(id), TColorTable::kUndefinedColor);
}

TEST(ColorTable, StandardNamesNumbersAndPlainValues) {
    TColorTable table;
    quint32 value = 0;
    table.IdentToColor("clRed", value);
    EXPECT_EQ(value, 0x0000FFu);
    table.IdentToColor("CLBTNFACE", value);
    EXPECT_EQ(value, clSystemColor | 15);
    table.IdentToColor("123", value);
    EXPECT_EQ(value, 123u);
    table.IdentToColor("$FF00", value);
    EXPECT_EQ(value, 0xFF00u);

    QString name;
    ASSERT_TRUE(table.ColorToIdent(0x0000FF, name));
    EXPECT_EQ(name, "clRed");
    EXPECT_FALSE(table.ColorToIdent(0x123456, name));

    EXPECT_EQ(table.ColorToRGB(0x80123456), 0x80123456u);  // alpha passes through
    EXPECT_EQ(table.ColorToRGB(clSystemColor | 5), SystemColor(5));
    EXPECT_EQ(table.ColorToRGB(0xFFABCDEF), TColorTable::kUndefinedColor);

    const QStringList values = table.GetColorValues();
    EXPECT_EQ(values.size(), 52);
    EXPECT_EQ(values.front(), "clBlack");
    EXPECT_EQ(values.back(), "clWindowText");
}

}  // namespace
}  // namespace qpt
