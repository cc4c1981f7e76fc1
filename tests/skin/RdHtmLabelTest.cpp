#include "skin/RdHtmLabel.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

#include "skin/HtmTag.h"
#include "tests/common/QtPrinters.h"
#include "tests/skin/SendInput.h"
#include "tests/skin/SolidPicture.h"

namespace qpt {
namespace {

using Kind = THtmItem::TKind;

// The items that carry text, each with its text.
std::vector<const THtmItem*> TextItems(const THtmDocument& document) {
    std::vector<const THtmItem*> items;
    for (const THtmItem& item : document.items)
        if (item.kind == Kind::Text) items.push_back(&item);
    return items;
}

const THtmItem& TextItem(const THtmDocument& document, const QString& text) {
    for (const THtmItem& item : document.items)
        if (item.kind == Kind::Text && item.text == text) return item;
    static const THtmItem none;
    ADD_FAILURE() << "no item " << text.toStdString();
    return none;
}

TEST(HtmReader, StyleTagsOpenAndCloseInAnyCase) {
    const THtmDocument doc = ParseHtm(
        u"<B>b</B><strong>st</strong><I>i</I><em>e</em><U>u</U><S>s</S>"
        u"<STRIKE>k</STRIKE><SUB>lo</SUB><SUP>hi</SUP><Z>z</Z>plain");
    EXPECT_TRUE(TextItem(doc, "b").style.bold);
    EXPECT_TRUE(TextItem(doc, "st").style.bold);
    EXPECT_TRUE(TextItem(doc, "i").style.italic);
    EXPECT_TRUE(TextItem(doc, "e").style.italic);
    EXPECT_TRUE(TextItem(doc, "u").style.underline);
    EXPECT_TRUE(TextItem(doc, "s").style.strike);
    EXPECT_TRUE(TextItem(doc, "k").style.strike);
    EXPECT_EQ(TextItem(doc, "lo").style.script, -1);
    EXPECT_EQ(TextItem(doc, "hi").style.script, 1);
    EXPECT_TRUE(TextItem(doc, "z").block.noWrap);
    EXPECT_EQ(TextItem(doc, "plain").style, THtmStyle());
    EXPECT_EQ(TextItem(doc, "plain").block, THtmBlock());
}

TEST(HtmReader, FontAttributesAndStyleKeys) {
    const THtmDocument doc = ParseHtm(
        u"<FONT COLOR=#ff0000 BGCOLOR=clYellow FACE='Serif' SIZE=5>a</FONT>"
        u"<font size=+1 color=blue>b</font><FONT SIZE=-9>c</FONT>"
        u"<SPAN STYLE=\"font-size:14pt; BACKGROUND-COLOR:#00ff00\">d</SPAN>"
        u"<FONT STYLE=\"FONT-SIZE:12PX\">e</FONT>");
    const THtmStyle& a = TextItem(doc, "a").style;
    EXPECT_EQ(a.color, 0x0000FFu);
    EXPECT_EQ(a.bgColor, 0x00FFFFu);
    EXPECT_EQ(a.face, "Serif");
    EXPECT_EQ(a.sizePt, 18);
    EXPECT_EQ(TextItem(doc, "b").style.sizePt, 14);
    EXPECT_EQ(TextItem(doc, "b").style.color, 0xFF0000u);
    EXPECT_EQ(TextItem(doc, "c").style.sizePt, 8);
    EXPECT_EQ(TextItem(doc, "d").style.sizePt, 14);
    EXPECT_EQ(TextItem(doc, "d").style.bgColor, 0x00FF00u);
    // A size in anything but points is not taken.
    EXPECT_EQ(TextItem(doc, "e").style.sizePt, 0);
}

TEST(HtmReader, LinksBodyPicturesAndRules) {
    const THtmDocument doc = ParseHtm(
        u"<BODY BACKGROUND=\"IDX:1\" BGCOLOR=red BGCOLORTO=#0000ff DIR=vert>"
        u"<A HREF=\"open\" TITLE=\"Open it\" MAXLINE=2 LINESPACE=3>go <B>now</B></A> after"
        u"<IMG SRC=\"SSYS:pic\" ALT=\"[p]\" WIDTH=16 HEIGHT=12 ALIGN=\"TOP\">"
        u"<IMG SRC=LSYS:icon ALIGN=\"MIDDLE\"><HR COLOR=clGray WIDTH=50 HEIGHT=3>");
    ASSERT_EQ(doc.links.size(), 1u);
    EXPECT_EQ(doc.links[0].href, "open");
    EXPECT_EQ(doc.links[0].title, "Open it");
    EXPECT_EQ(doc.links[0].maxLine, 2);
    EXPECT_EQ(doc.links[0].lineSpace, 3);
    EXPECT_EQ(TextItem(doc, "go ").style.link, 0);
    EXPECT_EQ(TextItem(doc, "now").style.link, 0);
    EXPECT_TRUE(TextItem(doc, "now").style.bold);
    EXPECT_EQ(TextItem(doc, " after").style.link, -1);

    EXPECT_EQ(doc.background.picture, "IDX:1");
    EXPECT_EQ(doc.background.color, 0x0000FFu);
    EXPECT_EQ(doc.background.colorTo, 0xFF0000u);
    EXPECT_TRUE(doc.background.vertical);
    const THtmDocument corners = ParseHtm(u"<BODY BGTOPLEFT=#010203 BGTOPRIGHT=#040506>");
    EXPECT_EQ(corners.background.color, 0x030201u);
    EXPECT_EQ(corners.background.colorTo, 0x060504u);

    std::vector<const THtmItem*> pictures, rules;
    for (const THtmItem& item : doc.items) {
        if (item.kind == Kind::Image) pictures.push_back(&item);
        if (item.kind == Kind::Rule) rules.push_back(&item);
    }
    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_EQ(pictures[0]->text, "SSYS:pic");
    EXPECT_EQ(pictures[0]->alt, "[p]");
    EXPECT_EQ(pictures[0]->width, 16);
    EXPECT_EQ(pictures[0]->height, 12);
    EXPECT_EQ(pictures[0]->valign, THtmVAlign::Top);
    EXPECT_EQ(pictures[1]->valign, THtmVAlign::Middle);
    ASSERT_EQ(rules.size(), 1u);
    EXPECT_EQ(rules[0]->width, 50);
    EXPECT_EQ(rules[0]->height, 3);
    EXPECT_EQ(rules[0]->style.color, 0x808080u);
}

TEST(HtmReader, ListsParagraphsAndAlignment) {
    const THtmDocument doc = ParseHtm(
        u"<UL TYPE=SQUARE><LI>one<LI TYPE=CIRCLE>two</UL><OL INDENT=30><LI>x<LI>y</OL>"
        u"<UL TYPE=CIRCLE><LI>c</UL>"
        u"<P ALIGN=CENTER INDENT=7 WRAP=0>mid</P><P ALIGN=RIGHT>r</P><P ALIGN=LEFT>l</P>"
        u"<RIGHT>rr</RIGHT><P DIR=RTL>rtl</P>");
    std::vector<QString> texts;
    for (const THtmItem* item : TextItems(doc))
        texts.push_back(item->text);
    const std::vector<QString> expected = {"\u00B7", " ",  "one", "o ",  "two", "1. ", "x",  "2. ",
                                           "y",      "o ", "c",   "mid", "r",   "l",   "rr", "rtl"};
    EXPECT_EQ(texts, expected);
    EXPECT_EQ(TextItem(doc, "\u00B7").style.face, "Symbol");
    EXPECT_EQ(TextItem(doc, "one").block.indent, 16);
    EXPECT_EQ(TextItem(doc, "x").block.indent, 30);
    const THtmBlock& mid = TextItem(doc, "mid").block;
    EXPECT_EQ(mid.align, THtmAlign::Center);
    EXPECT_EQ(mid.indent, 7);
    EXPECT_TRUE(mid.noWrap);
    EXPECT_EQ(TextItem(doc, "r").block.align, THtmAlign::Right);
    EXPECT_EQ(TextItem(doc, "l").block, THtmBlock());
    EXPECT_EQ(TextItem(doc, "rr").block.align, THtmAlign::Right);
    EXPECT_EQ(TextItem(doc, "rtl").block.align, THtmAlign::Right);
    // Each list item and paragraph starts a line of its own.
    EXPECT_EQ(HtmPlainText(doc), "\u00B7 one\no two\n1. x\n2. y\no c\nmid\nr\nl\nrr\nrtl\n");
}

TEST(HtmReader, EntitiesAndLineBreaks) {
    const THtmDocument doc = ParseHtm(
        u"&nbsp;&lt;&gt;&amp;&quot;&sect;&permil;&reg;&copy;&para;&trade;&euro;|&AMP;|&bogus;|"
        u"a<BR>b<br>c\r\nd");
    EXPECT_EQ(HtmPlainText(doc),
              QString::fromUtf16(
                  u"\u00A0<>&\"\u00A7\u2030\u00AE\u00A9\u00B6\u2122\u20AC|&|&bogus;|a\nb\nc\nd"));
}

TEST(HtmReader, UnknownTagsAreSkippedNeverShown) {
    const THtmDocument doc = ParseHtm(
        u"<XYZ a=1>one</XYZ><Q>two<BLINK>three</BLINK><IMGX SRC=x><ANCHOR>four< b >five<>six");
    EXPECT_EQ(HtmPlainText(doc), "onetwothreefourfivesix");
    EXPECT_TRUE(doc.links.empty());
    for (const THtmItem* item : TextItems(doc))
        EXPECT_EQ(item->style, THtmStyle());
}

TEST(HtmReader, HostileMarkupStaysBounded) {
    // A tag left open at the end is dropped; the text before it stays.
    EXPECT_EQ(HtmPlainText(ParseHtm(u"kept<A HREF=\"never closed")), "kept");
    EXPECT_EQ(HtmPlainText(ParseHtm(u"a<B>b<I>c")), "abc");
    // A quoted ">" belongs to the value.
    EXPECT_EQ(ParseHtm(u"<A TITLE=\"x>y\">t</A>").links[0].title, "x>y");

    const THtmDocument huge = ParseHtm(
        u"<FONT SIZE=999999>a</FONT><SPAN STYLE=\"FONT-SIZE:99999PT\">b</SPAN>"
        u"<IMG SRC=x WIDTH=999999999 HEIGHT=99999999999999999999><HR HEIGHT=100000 WIDTH=-5>"
        u"<A MAXLINE=99999999 LINESPACE=-99999>c</A><P INDENT=99999999>d");
    EXPECT_EQ(TextItem(huge, "a").style.sizePt, 36);
    EXPECT_EQ(TextItem(huge, "b").style.sizePt, kHtmMaxFontPt);
    for (const THtmItem& item : huge.items) {
        EXPECT_LE(item.width, kHtmMaxPictureSide);
        EXPECT_LE(item.height, kHtmMaxPictureSide);
        EXPECT_GE(item.width, 0);
        EXPECT_LE(item.block.indent, 2000);
    }
    EXPECT_LE(huge.links[0].maxLine, 1000);
    EXPECT_GE(huge.links[0].lineSpace, -200);

    // Deep nesting: past the bound tags change nothing, and closing them
    // all brings the plain look back.
    QString deep;
    for (int i = 0; i < 20000; ++i)
        deep += u"<FONT SIZE=7><B><A HREF=x>";
    deep += u"inner";
    for (int i = 0; i < 20000; ++i)
        deep += u"</A></B></FONT>";
    deep += u"outer";
    const THtmDocument nested = ParseHtm(deep);
    EXPECT_LE(nested.links.size(), size_t(kHtmMaxNesting));
    EXPECT_EQ(TextItem(nested, "outer").style, THtmStyle());
    EXPECT_TRUE(TextItem(nested, "inner").style.bold);
}

TEST(HtmTag, NumbersAndColours) {
    EXPECT_EQ(HtmNumber(u" 42px", 0, 0, 100), 42);
    EXPECT_EQ(HtmNumber(u"-3", 0, -10, 10), -3);
    EXPECT_EQ(HtmNumber(u"abc", 7, 0, 10), 7);
    EXPECT_EQ(HtmNumber(u"123456789012345678901234567890", 0, 0, 50), 50);
    EXPECT_EQ(HtmColor("clRed"), 0x0000FFu);
    EXPECT_EQ(HtmColor("RED"), 0x0000FFu);
    EXPECT_EQ(HtmColor("#102030"), 0x302010u);
    EXPECT_FALSE(HtmColor("no colour"));
}

class HtmLabelTest : public ::testing::Test {
protected:
    void SetUp() override {
        label.SetAutoSize(false);
        label.SetWordWrap(true);
        // A cutting ellipsis keeps the label at the size the test gives it.
        label.SetEllipsisPosition(TRdLabel::epEndEllipsis);
        label.Font()->SetHeight(-12);
        label.Font()->SetAntialiased(false);
        metrics = std::make_unique<QFontMetrics>(label.Font()->ToQFont());
    }

    TRdHtmLabel label;
    std::unique_ptr<QFontMetrics> metrics;
};

TEST_F(HtmLabelTest, WrapsWithinTheWidthAndCutsWhatIsTooLow) {
    label.setGeometry(0, 0, metrics->horizontalAdvance("word word") + 2, 200);
    label.SetCaption("word word word word word");
    THtmLayout layout = label.CurrentLayout();
    EXPECT_EQ(label.Lines(), 3);
    EXPECT_FALSE(label.FoundTextOutOfRect());
    for (const THtmFragment& fragment : layout.fragments)
        EXPECT_LE(fragment.rect.left() + metrics->horizontalAdvance(fragment.text.trimmed()),
                  label.width());

    label.resize(label.width(), metrics->height() * 2);
    layout = label.CurrentLayout();
    EXPECT_EQ(layout.lines, 2);
    EXPECT_TRUE(label.FoundTextOutOfRect());
    EXPECT_TRUE(layout.fragments.back().text.endsWith("..."));
    EXPECT_EQ(label.PlainText(), "word word word word word");
}

TEST_F(HtmLabelTest, AlignmentAndUnfoundPicturesShowingTheirText) {
    label.setGeometry(0, 0, 200, 100);
    label.SetCaption("<P ALIGN=RIGHT>end</P><IMG SRC=\"IDX:5\" ALT=\"[gone]\"><IMG SRC=\"IDX:0\">");
    const THtmLayout layout = label.CurrentLayout();
    ASSERT_GE(layout.fragments.size(), 2u);
    EXPECT_EQ(layout.fragments[0].rect.right(), 199);
    EXPECT_EQ(layout.fragments[1].text, "[gone]");
    // Picture 0 is not there either and has no text: nothing is placed.
    EXPECT_EQ(layout.fragments.size(), 2u);

    label.SetImages({QImage(10, 20, QImage::Format_ARGB32)});
    const THtmLayout withPicture = label.CurrentLayout();
    ASSERT_EQ(withPicture.fragments.size(), 3u);
    EXPECT_EQ(withPicture.fragments[2].rect.size(), QSize(10, 20));
}

TEST_F(HtmLabelTest, MaxLineCutsALinkAndReportsIt) {
    label.setGeometry(0, 0, metrics->horizontalAdvance("aaaa bbbb") + 1, 300);
    label.SetCaption("<A HREF=more MAXLINE=1>aaaa bbbb cccc dddd</A> tail");
    ASSERT_EQ(label.LinkItems()->Count(), 1);
    TRdHtmLabelLink* link = label.LinkItems()->Item(0);
    EXPECT_EQ(link->Name(), "more");
    EXPECT_EQ(link->Caption(), "aaaa bbbb cccc dddd");
    THtmLayout layout = label.CurrentLayout();
    EXPECT_TRUE(layout.linkCut[0]);
    const QString first = layout.fragments[0].text;
    EXPECT_TRUE(first.startsWith("aaaa") && first.endsWith("...")) << first.toStdString();
    for (const THtmFragment& fragment : layout.fragments)
        EXPECT_FALSE(fragment.text.contains("cccc"));
    EXPECT_EQ(layout.fragments.back().text, "tail");
    testing::RenderWidget(label);
    EXPECT_TRUE(link->FoundTextEllipsis());

    // The item's own limit wins over the markup's.
    link->SetMaxLine(5);
    layout = label.CurrentLayout();
    EXPECT_FALSE(layout.linkCut[0]);
    testing::RenderWidget(label);
    EXPECT_FALSE(link->FoundTextEllipsis());
}

TEST_F(HtmLabelTest, LinksLightUpUnderTheMouseAndReportClicks) {
    label.setGeometry(0, 0, 200, 40);
    label.SetCaption("see <A HREF=\"site\" TITLE=\"The site\">here</A> now");
    TRdHtmLabelLink* link = label.LinkItems()->Find("site");
    ASSERT_NE(link, nullptr);
    EXPECT_EQ(link->Hint(), "The site");
    link->Font()->SetColor(0x00FF00);       // green
    link->FontHover()->SetColor(0x0000FF);  // red
    label.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&label));

    const int x = metrics->horizontalAdvance("see ") + 3;
    const QPoint onLink(x, metrics->height() / 2);
    auto count = [&](QRgb color) {
        const QImage shot = testing::RenderWidget(label);
        int n = 0;
        for (int y = 0; y < shot.height(); ++y)
            for (int i = 0; i < shot.width(); ++i)
                n += shot.pixel(i, y) == color;
        return n;
    };
    EXPECT_GT(count(qRgb(0, 255, 0)), 5);
    EXPECT_EQ(count(qRgb(255, 0, 0)), 0);

    testing::MouseMove(label, onLink);
    EXPECT_EQ(label.HoverLink(), link);
    EXPECT_EQ(label.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_GT(count(qRgb(255, 0, 0)), 5);
    EXPECT_EQ(count(qRgb(0, 255, 0)), 0);

    QString clicked;
    label.OnLinkClick = [&](TRdHtmLabel&, TRdHtmLabelLink& item) { clicked = item.Name(); };
    testing::MouseClick(label, onLink);
    EXPECT_EQ(clicked, "site");

    testing::MouseMove(label, QPoint(2, metrics->height() / 2));
    EXPECT_EQ(label.HoverLink(), nullptr);
    EXPECT_NE(label.cursor().shape(), Qt::PointingHandCursor);
    clicked.clear();
    testing::MouseClick(label, QPoint(2, 2));
    EXPECT_TRUE(clicked.isEmpty());
}

TEST_F(HtmLabelTest, HostileMarkupLaysOutAndPaintsWithinBounds) {
    label.setGeometry(0, 0, 120, 60);
    label.SetImages({QImage(4, 4, QImage::Format_ARGB32)});
    QString markup =
        QString("<IMG SRC=IDX:0 WIDTH=999999 HEIGHT=999999><HR WIDTH=999999 HEIGHT=999999>");
    for (int i = 0; i < 500; ++i)
        markup += QString("<FONT SIZE=999999 STYLE=\"FONT-SIZE:99999PT\"><A HREF=x>");
    markup += QString(
        "wordwordwordwordwordwordwordwordwordwordwordwordwordword <UL><LI><OL><LI>unclosed");
    label.SetCaption(markup);
    const THtmLayout layout = label.CurrentLayout();
    EXPECT_TRUE(layout.cut);
    for (const THtmFragment& fragment : layout.fragments) {
        EXPECT_LE(fragment.rect.width(), kHtmMaxPictureSide);
        EXPECT_LE(fragment.rect.height(), kHtmMaxPictureSide);
    }
    testing::RenderWidget(label);
}

TEST_F(HtmLabelTest, FitsToTheMarkup) {
    label.SetWordWrap(false);
    label.SetAutoSize(true);
    label.SetCaption("<B>one</B><BR>two");
    EXPECT_EQ(label.height(), 2 * metrics->height());
    label.SetCaption("");
    EXPECT_EQ(label.height(), metrics->height());
}

}  // namespace
}  // namespace qpt
