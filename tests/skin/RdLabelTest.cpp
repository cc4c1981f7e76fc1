#include "skin/RdLabel.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QHelpEvent>

#include "tests/common/QtPrinters.h"
#include "tests/skin/SendInput.h"
#include "tests/skin/SolidPicture.h"

namespace qpt {
namespace {

using testing::RenderWidget;

void SetBorder(TRdLabel& label, int left, int top, int right, int bottom) {
    label.TextBorder()->Rect().Set(left, top, right, bottom, TSuperStretchMode::sdmDefault);
    emit label.TextBorder()->Changed();
}

QFontMetrics Metrics(const TRdLabel& label) {
    return QFontMetrics(label.Font()->ToQFont());
}

TEST(RdLabel, AutoSizeFitsTextAndBorderKeepingTheEdgeOfItsAlignment) {
    TRdLabel label;
    label.setGeometry(100, 50, 10, 10);
    SetBorder(label, 3, 2, 5, 4);
    label.SetCaption("Save the picture");
    const QFontMetrics metrics = Metrics(label);
    const QSize text(metrics.horizontalAdvance("Save the picture"), metrics.height());
    EXPECT_EQ(label.geometry(), QRect(100, 50, text.width() + 8, text.height() + 6));

    // Right-aligned text keeps the right edge, a bottom layout the lower one.
    label.SetAlignment(TRdLabel::taRightJustify);
    label.SetLayout(TRdLabel::tlBottom);
    const QRect before = label.geometry();
    label.SetCaption("Save");
    EXPECT_EQ(label.geometry().right(), before.right());
    EXPECT_EQ(label.geometry().bottom(), before.bottom());
    EXPECT_EQ(label.width(), metrics.horizontalAdvance("Save") + 8);

    // A centred layout keeps the vertical middle when a line is added.
    label.SetLayout(TRdLabel::tlCenter);
    const int middle = label.y() + label.height() / 2;
    label.SetCaption("Save\nthe picture");
    EXPECT_EQ(label.height(), 2 * metrics.height() + 6);
    EXPECT_NEAR(label.y() + label.height() / 2, middle, 1);
}

TEST(RdLabel, NothingToShowIsMeasuredAsOneBlank) {
    TRdLabel label;
    const QFontMetrics metrics = Metrics(label);
    const QSize blank(metrics.horizontalAdvance(' '), metrics.height());
    for (const char* caption : {"", "&"}) {
        label.SetCaption("x");
        label.SetCaption(caption);
        EXPECT_EQ(label.size(), blank) << caption;
    }
    // Without accelerators the "&" is a character of its own.
    label.SetShowAccelChar(false);
    EXPECT_EQ(label.width(), metrics.horizontalAdvance('&'));
}

TEST(RdLabel, AcceleratorsAreHiddenAndUnderlined) {
    TRdLabel label;
    label.SetCaption("Fish && &Chips");
    const TLabelText text = label.ShownText();
    ASSERT_EQ(text.lines.size(), 1);
    EXPECT_EQ(text.lines[0], "Fish & Chips");
    EXPECT_EQ(text.accelPos, 7);
    EXPECT_EQ(label.width(), Metrics(label).horizontalAdvance("Fish & Chips"));
}

TEST(RdLabel, ConstraintsBoundTheFitAndTheEllipsisCutsTheRest) {
    TRdLabel label;
    label.setMaximumWidth(60);
    label.setMinimumHeight(30);
    label.SetEllipsisPosition(TRdLabel::epEndEllipsis);
    label.SetCaption("A caption far too long for sixty pixels");
    // The label takes the width of the cut text, within the constraint.
    const TLabelText text = label.ShownText();
    EXPECT_EQ(label.width(), Metrics(label).horizontalAdvance(text.lines[0]));
    EXPECT_LE(label.width(), 60);
    EXPECT_EQ(label.height(), 30);
    EXPECT_TRUE(text.cut);
    EXPECT_TRUE(text.lines[0].endsWith("..."));
    EXPECT_TRUE(QString("A caption far too long").startsWith(text.lines[0].chopped(3)));
    EXPECT_LE(Metrics(label).horizontalAdvance(text.lines[0]), 60);

    // The path ellipsis keeps both ends.
    label.SetEllipsisPosition(TRdLabel::epPathEllipsis);
    label.SetCaption("/home/someone/pictures/screenshot.png");
    const QString path = label.ShownText().lines[0];
    EXPECT_TRUE(path.startsWith("/h") && path.endsWith("ng") && path.contains("..."))
        << path.toStdString();
}

TEST(RdLabel, WordWrapWithEllipsisCutsToWholeLinesEndingInDots) {
    TRdLabel label;
    label.SetAutoSize(false);
    label.SetWordWrap(true);
    label.SetEllipsisPosition(TRdLabel::epWordEllipsis);
    const int line = Metrics(label).height();
    label.setGeometry(0, 0, 90, line * 5 / 2);
    label.SetCaption("one two three four five six seven eight nine ten eleven twelve");
    // The label cut its lines: its height stays, two whole lines show.
    EXPECT_EQ(label.height(), line * 5 / 2);
    TLabelText text = label.ShownText();
    ASSERT_EQ(text.lines.size(), 2);
    EXPECT_TRUE(text.lines[1].endsWith("..."));
    // Cut between words, never inside one.
    const QString kept = text.lines[1].chopped(3);
    EXPECT_TRUE(QString(" one two three four five six seven eight nine ten eleven twelve ")
                    .contains(" " + kept + " "))
        << kept.toStdString();

    // However low the label, one line stays.
    label.setGeometry(0, 0, 90, 3);
    text = label.ShownText();
    ASSERT_EQ(text.lines.size(), 1);
    EXPECT_TRUE(text.lines[0].endsWith("..."));

    // Word wrap without a cutting ellipsis grows the label to its text.
    label.SetEllipsisPosition(TRdLabel::epNone);
    EXPECT_EQ(label.height(), int(label.ShownText().lines.size()) * line);
    EXPECT_GT(label.ShownText().lines.size(), 2);
}

TEST(RdLabel, FitWaitsForTheEndOfLoading) {
    TRdLabel label;
    label.resize(5, 5);
    label.BeginLoad();
    label.SetCaption("Loaded later");
    EXPECT_EQ(label.size(), QSize(5, 5));
    label.EndLoad();
    EXPECT_EQ(label.width(), Metrics(label).horizontalAdvance("Loaded later"));
}

TEST(RdLabel, PaintsPictureThenTextInsideTheBorderInTheStateColour) {
    TRdLabel label;
    label.SetAutoSize(false);
    label.setGeometry(0, 0, 80, 30);
    SetBorder(label, 20, 0, 0, 0);
    testing::SetSolidPicture(*label.BkgNormal(), 4, 4, qRgb(0, 0, 255));
    label.SetFontAntialiased(false);
    label.Font()->SetColor(0x000000);   // black
    label.SetFontHoverColor(0x0000FF);  // red
    label.SetCaption("WWWW");

    auto countText = [](const QImage& shot, QRgb color, int fromX) {
        int count = 0;
        for (int y = 0; y < shot.height(); ++y)
            for (int x = fromX; x < shot.width(); ++x)
                count += shot.pixel(x, y) == color;
        return count;
    };
    QImage shot = RenderWidget(label);
    EXPECT_EQ(shot.pixel(0, 0), qRgb(0, 0, 255));
    EXPECT_EQ(shot.pixel(79, 29), qRgb(0, 0, 255));
    // Nothing of the text lands in the border on the left.
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 20; ++x)
            ASSERT_EQ(shot.pixel(x, y), qRgb(0, 0, 255));
    EXPECT_GT(countText(shot, qRgb(0, 0, 0), 20), 10);

    testing::MouseEnter(label, QPoint(30, 10));
    EXPECT_TRUE(label.Hovered());
    shot = RenderWidget(label);
    EXPECT_EQ(countText(shot, qRgb(0, 0, 0), 20), 0);
    EXPECT_GT(countText(shot, qRgb(255, 0, 0), 20), 10);

    testing::SendMouse(label, QEvent::MouseButtonPress, QPoint(30, 10), Qt::LeftButton,
                       Qt::LeftButton);
    EXPECT_TRUE(label.Pressed());
    testing::SendMouse(label, QEvent::MouseButtonRelease, QPoint(30, 10), Qt::LeftButton,
                       Qt::NoButton);
    EXPECT_FALSE(label.Pressed());
}

TEST(RdLabel, AutoShowHintOffersACutCaption) {
    TRdLabel label;
    label.SetAutoSize(false);
    label.SetEllipsisPosition(TRdLabel::epEndEllipsis);
    label.setGeometry(0, 0, 30, 20);
    label.SetCaption("Far too long to show");
    QString shown;
    label.OnShowHint = [&](TRdCustomLabel&, QString& hint, bool& show) {
        shown = hint;
        show = false;
    };
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(&label, &help);
    EXPECT_EQ(shown, "");
    label.SetAutoShowHint(true);
    QApplication::sendEvent(&label, &help);
    EXPECT_EQ(shown, "Far too long to show");
    label.SetHint("Own hint");
    QApplication::sendEvent(&label, &help);
    EXPECT_EQ(shown, "Own hint");
}

}  // namespace
}  // namespace qpt
