// Caption and icon layout of the image button, and the button fitting its
// caption. Widths come from the same font metrics, so no font is assumed.
#include <gtest/gtest.h>

#include <QFontMetrics>

#include "skin/ButtonTextLayout.h"
#include "skin/RdImageButton.h"

namespace qpt {
namespace {

using T = TImageButtonTypes;

QFont TestFont() {
    QFont font;
    font.setPixelSize(12);
    return font;
}

TEST(ButtonTextLayout, OffsetsMarginsAndAnIconAtTheEdgeBoundTheCaption) {
    TButtonTextStyle text;
    text.Align = T::taLeftJustify;
    text.Margins = QMargins(30, 0, 0, 0);
    TButtonIconStyle icon;
    icon.Size = QSize(16, 16);
    icon.Offset = 4;
    const TButtonLayout right =
        LayoutButtonText(QRect(0, 0, 200, 40), "Hi", TestFont(), text, icon);
    EXPECT_EQ(right.Icon, QRect(180, 12, 16, 16));
    EXPECT_EQ(right.Room.left(), 30);  // the larger of offset (20) and margin
    EXPECT_EQ(right.Room.right(), 179);
    EXPECT_EQ(right.Text.left(), 30);
    EXPECT_EQ(right.Text.center().y(), right.Room.center().y());

    icon.Align = T::taLeftJustify;
    icon.AlignY = T::tlTop;
    icon.OffsetY = 3;
    const TButtonLayout left = LayoutButtonText(QRect(0, 0, 200, 40), "Hi", TestFont(), text, icon);
    EXPECT_EQ(left.Icon, QRect(4, 3, 16, 16));
    EXPECT_EQ(left.Room.left(), 20 + 20);  // past the icon, plus the caption's offset
    EXPECT_FALSE(left.Ellipsis);
}

TEST(ButtonTextLayout, IconBesideTheCaptionMovesWithIt) {
    TButtonTextStyle text;
    TButtonIconStyle icon;
    icon.Size = QSize(10, 10);
    icon.Align = T::taLeftJustify;
    icon.Offset = 5;
    icon.AlignByText = true;
    icon.AlignYByText = true;
    icon.AlignY = T::tlTop;
    const TButtonLayout layout =
        LayoutButtonText(QRect(0, 0, 300, 50), "Caption", TestFont(), text, icon);
    EXPECT_EQ(layout.Icon.right(), layout.Text.left() - 5 - 1);
    EXPECT_EQ(layout.Icon.top(), layout.Text.top());
}

TEST(ButtonTextLayout, TooWideALineIsCutWithAnEllipsis) {
    TButtonTextStyle text;
    text.Offset = 0;
    const QString caption = QStringLiteral("A caption far too long for the room");
    const TButtonLayout layout =
        LayoutButtonText(QRect(0, 0, 80, 20), caption, TestFont(), text, {});
    ASSERT_EQ(layout.Lines.size(), 1);
    EXPECT_TRUE(layout.Ellipsis);
    EXPECT_TRUE(layout.Lines[0].endsWith(QChar(0x2026)));
    EXPECT_LE(layout.Text.width(), 80);
    EXPECT_EQ(layout.FullText.width(), QFontMetrics(TestFont()).horizontalAdvance(caption));
}

TEST(ButtonTextLayout, WrappedTextIsCutAtTheLinesThatFit) {
    TButtonTextStyle text;
    text.Offset = 0;
    text.WordWrap = true;
    const int line = QFontMetrics(TestFont()).height();
    const QString caption = QStringLiteral("one two three four five six seven eight nine ten");
    const QRect client(0, 0, 70, line * 2 + line / 2);
    TButtonLayout layout = LayoutButtonText(client, caption, TestFont(), text, {});
    EXPECT_TRUE(layout.WordBreak);
    ASSERT_EQ(layout.Lines.size(), 2);
    EXPECT_TRUE(layout.Ellipsis);
    EXPECT_TRUE(layout.Lines[1].endsWith(QChar(0x2026)));
    EXPECT_GT(layout.FullText.height(), 2 * line);

    text.MaxLine = 1;
    layout = LayoutButtonText(client, caption, TestFont(), text, {});
    EXPECT_EQ(layout.Lines.size(), 1);

    text.MaxLine = 0;
    text.EllipsisByHeight = false;
    layout = LayoutButtonText(client, caption, TestFont(), text, {});
    EXPECT_GT(layout.Lines.size(), 2);
    EXPECT_FALSE(layout.Ellipsis);
}

TEST(ButtonTextLayout, AccessKeyMarkersAreDroppedOnlyWhenAsked) {
    EXPECT_EQ(ShownCaption("&Save && close", true), "Save & close");
    EXPECT_EQ(ShownCaption("&Save", false), "&Save");
    EXPECT_EQ(ShownCaption("end&", true), "end&");
}

TEST(RdImageButtonText, ButtonReportsTheCutAndFitsItsCaption) {
    QWidget parent;
    parent.resize(400, 100);
    TRdImageButton button(&parent);
    button.setGeometry(100, 10, 60, 30);
    button.SetCaption(QStringLiteral("Save the picture as a file"));
    EXPECT_TRUE(button.FoundTextEllipsis());
    EXPECT_EQ(button.FoundTextDrawLine(), 1);

    const int full = QFontMetrics(button.Font()->ToQFont()).horizontalAdvance(button.Caption());
    button.SetButtonCaptionAlignment(T::taRightJustify);
    button.SetAutoSizeByText(true);
    EXPECT_EQ(button.width(), full + 20);  // the caption and its offset
    EXPECT_EQ(button.geometry().right(), 159);
    EXPECT_FALSE(button.FoundTextEllipsis());

    button.setMaximumWidth(80);  // Qt keeps the left edge here
    const int right = button.geometry().right();
    button.SetCaption(QStringLiteral("Save the picture as a file, now"));
    EXPECT_EQ(button.width(), 80);
    EXPECT_EQ(button.geometry().right(), right);
}

}  // namespace
}  // namespace qpt
