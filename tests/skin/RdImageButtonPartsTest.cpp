// The image button's check box, click-through range and cross-fade.
#include <gtest/gtest.h>

#include <QMouseEvent>

#include "tests/skin/ImageButtonStage.h"
#include "tests/skin/WindowPointer.h"

namespace qpt {
namespace {

using namespace testing;

const QRgb kClear = qRgb(10, 10, 10);
const QRgb kClearHover = qRgb(20, 20, 20);
const QRgb kChecked = qRgb(30, 30, 30);
const QRgb kHalf = qRgb(40, 40, 40);

// A 10 x 10 check box 10 pixels in from the left, centred: x 10..19, y 15..24.
struct CheckStage : ImageButtonStage {
    std::vector<QString> events;

    CheckStage() {
        button->SetShowCheckBox(true);
        button->SetCheckBoxFullClick(false);
        SetPicture(button->CheckBoxNormalImage(), kClear, QSize(10, 10));
        SetPicture(button->CheckBoxUnCheckedHoverImage(), kClearHover, QSize(10, 10));
        SetPicture(button->CheckBoxCheckedImage(), kChecked, QSize(10, 10));
        SetPicture(button->CheckBoxHalfCheckedImage(), kHalf, QSize(10, 10));
        button->CheckBoxBeforeClick = [this](TRdImageButton& b) {
            events.push_back(QStringLiteral("before %1").arg(b.CheckState()));
        };
        button->CheckBoxOnClick = [this](TRdImageButton& b) {
            events.push_back(QStringLiteral("click %1").arg(b.CheckState()));
        };
        button->OnCheckedChanged = [this](TRdImageButton&) { events.push_back("changed"); };
    }
    QRgb Box() { return Shot(*button).pixel(15, 20); }
};

const QPoint kOnBox(15, 20);

TEST(RdImageButtonCheckBox, ClicksToggleAndTheHalfStateGoesToChecked) {
    CheckStage stage;
    TRdImageButton& button = *stage.button;
    EXPECT_EQ(button.CheckBoxRect(), QRect(10, 15, 10, 10));
    WindowPointer pointer(stage.window);

    pointer.Move(button, QPoint(50, 20));
    EXPECT_FALSE(button.CheckHot());
    EXPECT_EQ(stage.Box(), kClear);
    pointer.Move(button, kOnBox);
    EXPECT_TRUE(button.CheckHot());
    EXPECT_TRUE(button.OverCheckArea());
    EXPECT_EQ(stage.Box(), kClearHover);

    pointer.Click(button, kOnBox);
    EXPECT_TRUE(button.Checked());
    EXPECT_EQ(stage.Box(), kChecked);
    EXPECT_EQ(stage.events, (std::vector<QString>{"before 0", "changed", "click 1"}));
    // Taking the click keeps the button itself up.
    EXPECT_EQ(button.ButtonState(), 0);
    pointer.Click(button, kOnBox);
    EXPECT_EQ(button.CheckState(), 0);

    button.SetCheckState(2);
    EXPECT_EQ(stage.Box(), kHalf);
    pointer.Click(button, kOnBox);
    EXPECT_EQ(button.CheckState(), 1);

    // Off the box, without full click, the button clicks as usual.
    pointer.Click(button, QPoint(60, 20));
    EXPECT_EQ(button.CheckState(), 1);
    EXPECT_EQ(stage.clicks, 4);
    button.SetCheckState(5);
    EXPECT_EQ(button.CheckState(), 1);
}

TEST(RdImageButtonCheckBox, FullClickTogglesFromAnywhereButTheIcon) {
    CheckStage stage;
    stage.AddIcon();
    TRdImageButton& button = *stage.button;
    button.SetCheckBoxFullClick(true);
    WindowPointer pointer(stage.window);
    pointer.Click(button, QPoint(60, 20));
    EXPECT_TRUE(button.Checked());
    EXPECT_FALSE(button.OverCheckArea());
    pointer.Click(button, QPoint(95, 20));
    EXPECT_TRUE(button.Checked());
    EXPECT_EQ(stage.iconClicks, 1);
}

TEST(RdImageButtonCheckBox, DisabledShowsTheGreyPictureWhenThereIsOne) {
    CheckStage stage;
    TRdImageButton& button = *stage.button;
    button.setEnabled(false);
    EXPECT_EQ(stage.Box(), kClear);
    SetPicture(button.CheckBoxGrayedImage(), kDisabled, QSize(10, 10));
    EXPECT_EQ(stage.Box(), kDisabled);
}

// Counts the presses that reach it.
class PressTarget : public QWidget {
public:
    using QWidget::QWidget;
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent* event) override {
        ++presses;
        event->accept();
    }
};

// A range picture 100 x 40: its left half transparent, a black stripe
// (x 50..59) opaque but still not hit, the rest white.
QImage RangePicture() {
    QImage range(100, 40, QImage::Format_ARGB32);
    range.fill(qRgba(255, 255, 255, 255));
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            range.setPixel(x, y, x < 50 ? qRgba(255, 255, 255, 0) : qRgba(0, 0, 0, 255));
    return range;
}

TEST(RdImageButtonMask, TransparentPixelsLetTheClickThroughToTheWidgetBeneath) {
    ImageButtonStage stage;
    auto* beneath = new PressTarget(&stage.window);
    beneath->setGeometry(stage.button->geometry());
    stage.button->raise();
    TRdImageButton& button = *stage.button;
    SetPicture(button.ImageRange(), RangePicture());
    EXPECT_FALSE(button.HitTestMask(10, 10));
    EXPECT_FALSE(button.HitTestMask(55, 10));
    EXPECT_TRUE(button.HitTestMask(70, 10));
    EXPECT_FALSE(button.HitTestMask(100, 10));

    WindowPointer pointer(stage.window);
    pointer.Click(button, QPoint(10, 10));
    EXPECT_EQ(beneath->presses, 1);
    EXPECT_EQ(stage.clicks, 0);
    EXPECT_FALSE(button.MouseIn());
    pointer.Click(button, QPoint(80, 10));
    EXPECT_EQ(beneath->presses, 1);
    EXPECT_EQ(stage.clicks, 1);

    button.ImageRange()->Clear();
    EXPECT_TRUE(button.HitTestMask(10, 10));
    pointer.Click(button, QPoint(10, 10));
    EXPECT_EQ(stage.clicks, 2);
    EXPECT_EQ(beneath->presses, 1);
}

TEST(RdImageButtonMask, SlicedRangeIsStretchedToTheButton) {
    QWidget window;
    window.resize(300, 100);
    TRdImageButton button(&window);
    window.show();
    button.resize(200, 80);
    QImage range(4, 4, QImage::Format_ARGB32);
    range.fill(qRgba(255, 255, 255, 255));
    range.setPixel(0, 0, 0);  // a transparent corner
    SetPicture(button.ImageRange(), range);
    EXPECT_FALSE(button.HitTestMask(150, 60));  // unsliced: outside the picture
    button.ImageOption()->Rect().Set(1, 1, 1, 1, TSuperStretchMode::sdmStretch);
    EXPECT_EQ(button.MaskImage().size(), QSize(200, 80));
    EXPECT_TRUE(button.HitTestMask(150, 60));
    EXPECT_FALSE(button.HitTestMask(0, 0));
    button.resize(50, 50);
    EXPECT_TRUE(button.HitTestMask(49, 49));
    EXPECT_FALSE(button.HitTestMask(50, 50));
}

int TicksToEnd(TRdImageButton& button) {
    int ticks = 0;
    while (button.FadeTimer()->Enabled() && ticks < 100) {
        button.FadeTimer()->Tick();
        ++ticks;
    }
    return ticks;
}

TEST(RdImageButtonFade, RunsToItsEndAndRestartsAsFadeOutOnLeave) {
    ImageButtonStage stage;
    TRdImageButton& button = *stage.button;
    button.SetHoverEffect(TImageButtonTypes::ibeSingle);
    EXPECT_EQ(button.FadeTimer()->Interval(), 10);
    // The test steps the fade by hand: a real tick firing while the pointer's
    // events are processed on a busy machine would skew every count below.
    button.FadeTimer()->SetInterval(24 * 60 * 60 * 1000);
    WindowPointer pointer(stage.window);

    pointer.Move(button, QPoint(20, 20));
    EXPECT_EQ(button.FadeMode(), 1);
    EXPECT_TRUE(button.FadeTimer()->Enabled());
    EXPECT_EQ(button.FadeAlpha(), 80);
    button.FadeTimer()->Tick();
    EXPECT_EQ(button.FadeAlpha(), 90);
    // Over at full strength below, normal at 255 - 90 above it.
    const QRgb mid = stage.Body();
    EXPECT_NEAR(qRed(mid), 200 * 165 / 255, 2);
    EXPECT_NEAR(qGreen(mid), 200 * 90 / 255, 2);

    pointer.Move(stage.window, QPoint(150, 80));
    EXPECT_EQ(button.FadeMode(), 2);
    EXPECT_EQ(button.FadeAlpha(), 80);
    EXPECT_EQ(TicksToEnd(button), 14);
    EXPECT_EQ(button.FadeMode(), 0);
    EXPECT_EQ(button.FadeAlpha(), 0);
    EXPECT_EQ(stage.Body(), kNormal);

    pointer.Move(button, QPoint(20, 20));
    TicksToEnd(button);
    EXPECT_EQ(stage.Body(), kOver);

    // A fade that becomes impossible ends at the next tick.
    pointer.Move(stage.window, QPoint(150, 80));
    button.ImageOver()->Clear();
    EXPECT_EQ(TicksToEnd(button), 1);
    EXPECT_EQ(button.FadeMode(), 0);
}

TEST(RdImageButtonFade, NoFadeWithACheckBoxOrWithoutEffect) {
    ImageButtonStage stage;
    TRdImageButton& button = *stage.button;
    WindowPointer pointer(stage.window);
    pointer.Move(button, QPoint(20, 20));
    EXPECT_EQ(button.FadeMode(), 0);
    pointer.Move(stage.window, QPoint(150, 80));
    button.SetHoverEffect(TImageButtonTypes::ibeDouble);
    button.SetShowCheckBox(true);
    pointer.Move(button, QPoint(20, 20));
    EXPECT_EQ(button.FadeMode(), 0);
    EXPECT_FALSE(button.FadeTimer()->Enabled());
}

}  // namespace
}  // namespace qpt
