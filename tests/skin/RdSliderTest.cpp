#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <vector>

#include "skin/PngImage.h"
#include "skin/RdSlider.h"
#include "skin/RdTimer.h"
#include "skin/SliderMapping.h"
#include "support/TickCount.h"
#include "tests/skin/RealSkin.h"
#include "tests/skin/SendInput.h"

namespace qpt {
namespace {

using namespace qpt::testing;

// The style bar's slider: ruler 134 wide inside 3 pixels of indent, a thumb
// of 14 pixels per state, so a travel of 120 pixels starting at x = 3.
constexpr TSliderScale kStyleBar{3, 120, 2, 30, 1, true, false};

QByteArray TwoHalvesPng(int width, int height, QRgb left, QRgb right) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(left);
    for (int y = 0; y < height; ++y)
        for (int x = width / 2; x < width; ++x)
            image.setPixel(x, y, right);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

void SetPicture(TRdPictureProperty* property, int width, int height, QRgb left, QRgb right) {
    auto png = std::make_unique<TPngImage>();
    ASSERT_TRUE(png->LoadFromBytes(TwoHalvesPng(width, height, left, right)));
    property->Picture().SetGraphic(std::move(png));
}

void Key(QWidget& w, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(&w, &event);
}

QImage Render(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// A clock the test moves by hand.
uint32_t g_now = 0;
uint32_t FakeClock() {
    return g_now;
}

// The slider of the style bar, with pictures of plain colours: a ruler in
// blue and a thumb whose left half is red, right half green.
class StyleBarSlider : public ::testing::Test {
protected:
    void SetUp() override {
        SetTickCountSource(&FakeClock);
        g_now = 0xFFFFFF00u;  // close to the wrap, which must not matter
        slider.resize(140, 28);
        slider.SetRulerIndent(3);
        slider.SetNumThumbStates(2);
        slider.SetMinValue(2);
        slider.SetMaxValue(30);
        slider.SetValue(30);
        slider.SetTransparent(true);
        SetPicture(slider.ImageHThumb(), 28, 14, qRgb(255, 0, 0), qRgb(0, 255, 0));
        SetPicture(slider.ImageHRuler(), 134, 6, qRgb(0, 0, 255), qRgb(0, 0, 255));
        slider.OnChange = [this](TRdCustomSlider& s) { log.push_back(s.Value()); };
        slider.OnChanged = [this](TRdCustomSlider&) { log.push_back(-1); };
    }
    void TearDown() override { SetTickCountSource(nullptr); }

    TRdSlider slider;
    std::vector<int> log;  // values told by OnChange, -1 for OnChanged
};

TEST(SliderMapping, BothEndsAndTheRoundTrip) {
    EXPECT_EQ(SliderValueToPos(kStyleBar, 2), 3);
    EXPECT_EQ(SliderValueToPos(kStyleBar, 30), 123);
    EXPECT_EQ(SliderValueToPos(kStyleBar, 16), 63);
    // Out-of-range values stay on the ruler.
    EXPECT_EQ(SliderValueToPos(kStyleBar, -50), 3);
    EXPECT_EQ(SliderValueToPos(kStyleBar, 99), 123);
    EXPECT_EQ(SliderPosToValue(kStyleBar, 3), 2);
    EXPECT_EQ(SliderPosToValue(kStyleBar, 123), 30);
    EXPECT_EQ(SliderPosToValue(kStyleBar, -40), 2);
    EXPECT_EQ(SliderPosToValue(kStyleBar, 500), 30);
    for (int value = 2; value <= 30; ++value)
        EXPECT_EQ(SliderPosToValue(kStyleBar, SliderValueToPos(kStyleBar, value)), value);
}

TEST(SliderMapping, SnapsToTheIncrementUnlessSmooth) {
    TSliderScale scale{0, 100, 0, 100, 10, true, false};
    EXPECT_EQ(SliderPosToValue(scale, 14), 10);
    EXPECT_EQ(SliderPosToValue(scale, 16), 20);
    scale.snap = false;
    EXPECT_EQ(SliderPosToValue(scale, 14), 14);
    // The grid counts from zero, not from the minimum.
    scale = {0, 100, 3, 103, 10, true, false};
    EXPECT_EQ(SliderPosToValue(scale, 14), 13);
}

TEST(SliderMapping, VerticalPutsTheMaximumAtTheTop) {
    TSliderScale scale{5, 50, 0, 10, 1, true, true};
    EXPECT_EQ(SliderValueToPos(scale, 10), 5);
    EXPECT_EQ(SliderValueToPos(scale, 0), 55);
    EXPECT_EQ(SliderValueToPos(scale, 2), 45);
    EXPECT_EQ(SliderPosToValue(scale, 5), 10);
    EXPECT_EQ(SliderPosToValue(scale, 55), 0);
    EXPECT_EQ(SliderPosToValue(scale, 46), 2);
}

TEST(SliderMapping, DegenerateScalesStayAtTheStart) {
    TSliderScale noTravel{7, 0, 4, 9, 1, true, false};
    EXPECT_EQ(SliderPosToValue(noTravel, 100), 4);
    EXPECT_EQ(SliderValueToPos(noTravel, 9), 7);
    TSliderScale noRange{7, 40, 4, 4, 0, true, false};
    EXPECT_EQ(SliderValueToPos(noRange, 4), 7);
    EXPECT_EQ(SliderPosToValue(noRange, 30), 4);
    TSliderScale huge{0, 1000, INT_MIN, INT_MAX, 1, true, false};
    EXPECT_EQ(SliderValueToPos(huge, INT_MAX), 1000);
    EXPECT_EQ(SliderPosToValue(huge, 1000), INT_MAX);
}

TEST(SliderMapping, StepValueRoundsToTheGridAndHoldsTheRange) {
    EXPECT_EQ(SliderStepValue(7, TSliderAction::Up, 0, 100, 5), 10);
    EXPECT_EQ(SliderStepValue(7, TSliderAction::Down, 0, 100, 5), 0);
    EXPECT_EQ(SliderStepValue(8, TSliderAction::Up, 0, 100, 5), 15);
    EXPECT_EQ(SliderStepValue(98, TSliderAction::Up, 0, 100, 5), 100);
    EXPECT_EQ(SliderStepValue(1, TSliderAction::Down, 0, 100, 5), 0);
    EXPECT_EQ(SliderStepValue(50, TSliderAction::ToMin, 2, 30, 1), 2);
    EXPECT_EQ(SliderStepValue(5, TSliderAction::ToMax, 2, 30, 1), 30);
    EXPECT_EQ(SliderStepValue(5, TSliderAction::None, 2, 30, 1), 5);
    EXPECT_EQ(SliderStepValue(5, TSliderAction::Up, 2, 30, 0), 6);
}

TEST(SliderMapping, DirectionOfAPointAgainstTheThumb) {
    const QRect thumb(10, 10, 5, 5);
    EXPECT_EQ(SliderPointDirection(thumb, {9, 12}, false), TSliderAction::Down);
    EXPECT_EQ(SliderPointDirection(thumb, {15, 12}, false), TSliderAction::Up);
    EXPECT_EQ(SliderPointDirection(thumb, {14, 0}, false), TSliderAction::None);
    EXPECT_EQ(SliderPointDirection(thumb, {0, 9}, true), TSliderAction::Up);
    EXPECT_EQ(SliderPointDirection(thumb, {0, 15}, true), TSliderAction::Down);
    EXPECT_EQ(SliderPointDirection(thumb, {40, 14}, true), TSliderAction::None);
}

TEST_F(StyleBarSlider, PaintsRulerAndTheThumbHalfOfItsState) {
    EXPECT_EQ(slider.RulerRect(), QRect(3, 11, 134, 6));
    EXPECT_EQ(slider.ThumbRect(), QRect(123, 7, 14, 14));
    QImage shot = Render(slider);
    EXPECT_EQ(shot.pixel(0, 14), 0u);  // transparent: nothing under the ruler's indent
    EXPECT_EQ(shot.pixel(3, 11), qRgb(0, 0, 255));
    EXPECT_EQ(shot.pixel(122, 14), qRgb(0, 0, 255));
    EXPECT_EQ(shot.pixel(123, 7), qRgb(255, 0, 0));
    EXPECT_EQ(shot.pixel(136, 20), qRgb(255, 0, 0));

    MouseMove(slider, {130, 14});
    EXPECT_TRUE(slider.ThumbHot());
    EXPECT_EQ(Render(slider).pixel(130, 14), qRgb(0, 255, 0));
    MouseMove(slider, {50, 14});
    EXPECT_EQ(Render(slider).pixel(130, 14), qRgb(255, 0, 0));

    // One state: the whole picture is the thumb.
    slider.SetNumThumbStates(1);
    EXPECT_EQ(slider.ThumbRect(), QRect(109, 7, 28, 14));
    shot = Render(slider);
    EXPECT_EQ(shot.pixel(110, 14), qRgb(255, 0, 0));
    EXPECT_EQ(shot.pixel(136, 14), qRgb(0, 255, 0));
}

TEST_F(StyleBarSlider, SelectedRulerEndsUnderTheThumbAndBackgroundFillsUnlessTransparent) {
    SetPicture(slider.ImageRulerSelect(), 134, 6, qRgb(255, 255, 0), qRgb(255, 255, 0));
    slider.SetRulerSelectAdd(5);
    slider.SetValue(16);  // thumb at 63
    slider.SetTransparent(false);
    slider.SetColor(0x00808080);
    QImage shot = Render(slider);
    EXPECT_EQ(shot.pixel(0, 0), qRgb(128, 128, 128));
    EXPECT_EQ(shot.pixel(3, 12), qRgb(255, 255, 0));
    EXPECT_EQ(shot.pixel(62, 16), qRgb(255, 255, 0));
    EXPECT_EQ(shot.pixel(67, 8), qRgb(255, 0, 0));
    EXPECT_EQ(shot.pixel(80, 12), qRgb(0, 0, 255));
}

TEST_F(StyleBarSlider, TicksMarkEachIncrementBelowTheRulerUnlessTheFormDrawsThem) {
    slider.SetIncrement(7);
    slider.SetOptions(TRdCustomSlider::soShowPoints);
    const QRgb ink = slider.palette().color(QPalette::WindowText).rgb();
    QImage shot = Render(slider);
    for (int x : {10, 40, 70, 100}) {
        EXPECT_EQ(shot.pixel(x, 20), ink) << x;
        EXPECT_EQ(shot.pixel(x, 24), ink) << x;
        EXPECT_EQ(shot.pixel(x, 25), 0u) << x;
        EXPECT_EQ(shot.pixel(x + 1, 22), 0u) << x;
    }
    QRect drawnFor;
    slider.OnDrawPoints = [&](TRdCustomSlider&, QPainter&, const QRect& ruler) {
        drawnFor = ruler;
    };
    shot = Render(slider);
    EXPECT_EQ(drawnFor, slider.RulerRect());
    EXPECT_EQ(shot.pixel(40, 22), 0u);
}

TEST_F(StyleBarSlider, HeldRulerWaitsHalfASecondThenStepsEveryTickUntilTheThumbArrives) {
    const QPoint point(40, 14);  // value 10's thumb covers x 40
    Press(slider, point);
    EXPECT_EQ(slider.Value(), 29);  // the press steps at once
    EXPECT_TRUE(slider.RepeatTimer()->Enabled());
    EXPECT_EQ(slider.RepeatTimer()->Interval(), 100);
    for (int i = 0; i < 4; ++i) {
        g_now += 100;
        slider.RepeatTimer()->Tick();
    }
    g_now += 99;
    slider.RepeatTimer()->Tick();
    EXPECT_EQ(slider.Value(), 29);
    g_now += 1;
    slider.RepeatTimer()->Tick();
    EXPECT_EQ(slider.Value(), 28);
    int ticks = 0;
    while (!slider.ThumbRect().contains(point) && ticks < 100) {
        const int before = slider.Value();
        g_now += 100;
        slider.RepeatTimer()->Tick();
        ASSERT_EQ(slider.Value(), before - 1);
        ++ticks;
    }
    EXPECT_EQ(slider.Value(), 10);
    slider.RepeatTimer()->Tick();
    EXPECT_EQ(slider.Value(), 10);
    EXPECT_EQ(log.size(), 20u);

    Release(slider, point);
    EXPECT_FALSE(slider.RepeatTimer()->Enabled());
    EXPECT_EQ(log.back(), -1);
    EXPECT_EQ(log.size(), 21u);
}

TEST_F(StyleBarSlider, MovingRightWhileHeldTurnsTheRepeatAround) {
    slider.SetValue(16);
    Press(slider, {10, 14});
    EXPECT_EQ(slider.Value(), 15);
    // Right of the thumb now, moved right: the repeat climbs.
    MoveHeld(slider, {100, 14});
    g_now += 500;
    slider.RepeatTimer()->Tick();
    EXPECT_EQ(slider.Value(), 16);
    // Moved left but still right of the thumb: the two directions disagree.
    MoveHeld(slider, {90, 14});
    slider.RepeatTimer()->Tick();
    EXPECT_EQ(slider.Value(), 16);
    Release(slider, {90, 14});
}

TEST_F(StyleBarSlider, PressBesideTheRulerOrWhenReadOnlyDoesNothing) {
    Press(slider, {40, 3});
    EXPECT_EQ(slider.Value(), 30);
    EXPECT_FALSE(slider.RulerHeld());
    Press(slider, {40, 8});  // within 3 pixels of the ruler's top
    EXPECT_EQ(slider.Value(), 29);
    Release(slider, {40, 8});
    slider.SetReadOnly(true);
    Press(slider, {40, 14});
    Press(slider, {124, 14});
    EXPECT_EQ(slider.Value(), 29);
    EXPECT_FALSE(slider.ThumbDown());
}

TEST_F(StyleBarSlider, ThumbDragFollowsTheMouseSnappedThenReportsTheEnd) {
    Press(slider, {130, 14});  // 7 pixels into the thumb
    EXPECT_TRUE(slider.ThumbDown());
    MoveHeld(slider, {72, 14});  // thumb edge at 65: 18.8 units -> 16 + 2
    EXPECT_EQ(slider.Value(), 16);
    EXPECT_EQ(slider.ThumbRect().left(), 63);
    MoveHeld(slider, {-200, 14});
    EXPECT_EQ(slider.Value(), 2);
    EXPECT_EQ(slider.ThumbRect().left(), 3);
    MoveHeld(slider, {-100, 14});  // no change, no OnChange
    Release(slider, {-100, 14});
    EXPECT_FALSE(slider.ThumbDown());
    EXPECT_EQ(log, (std::vector<int>{16, 2, -1}));
    EXPECT_EQ(slider.ThumbRect().left(), 3);
}

TEST_F(StyleBarSlider, KeysAlongTheAxisStepAndReportEachPress) {
    Key(slider, Qt::Key_Home);
    Key(slider, Qt::Key_Right);
    Key(slider, Qt::Key_Right);
    Key(slider, Qt::Key_Left);
    Key(slider, Qt::Key_Up);                      // across the axis
    Key(slider, Qt::Key_End, Qt::ShiftModifier);  // with a modifier
    EXPECT_EQ(slider.Value(), 3);
    EXPECT_EQ(log, (std::vector<int>{2, -1, 3, -1, 4, -1, 3, -1}));
    Key(slider, Qt::Key_End);
    EXPECT_EQ(slider.Value(), 30);

    slider.SetOrientation(TRdCustomSlider::soVertical);
    Key(slider, Qt::Key_Right);
    Key(slider, Qt::Key_Down);
    EXPECT_EQ(slider.Value(), 29);
    slider.setEnabled(false);
    Key(slider, Qt::Key_Home);
    EXPECT_EQ(slider.Value(), 29);
}

TEST_F(StyleBarSlider, VerticalSliderHasItsMaximumAtTheTop) {
    slider.resize(28, 140);
    slider.SetOrientation(TRdCustomSlider::soVertical);
    SetPicture(slider.ImageVThumb(), 28, 14, qRgb(255, 0, 0), qRgb(0, 255, 0));
    SetPicture(slider.ImageVRuler(), 6, 134, qRgb(0, 0, 255), qRgb(0, 0, 255));
    EXPECT_EQ(slider.ThumbRect(), QRect(7, 3, 14, 14));
    slider.SetValue(2);
    EXPECT_EQ(slider.ThumbRect(), QRect(7, 123, 14, 14));
    Press(slider, {14, 10});  // above the thumb: up
    EXPECT_EQ(slider.Value(), 3);
    Release(slider, {14, 10});
}

TEST_F(StyleBarSlider, SetsItselfFromItsPropertyNames) {
    EXPECT_TRUE(slider.setProperty("Orientation", "soVertical"));
    EXPECT_EQ(slider.Orientation(), TRdCustomSlider::soVertical);
    EXPECT_TRUE(slider.setProperty("Value", 7));
    EXPECT_EQ(slider.Value(), 7);
    EXPECT_TRUE(slider.setProperty("MinValue", 9));
    EXPECT_EQ(slider.Value(), 9);
}

TEST(Slider, TakesTheStyleBarLookFromTheSkin) {
    testing::RealSkin skin;
    auto* slider = new TRdSlider(&skin.form);
    slider->resize(140, 28);
    slider->SetRulerIndent(3);
    slider->SetMinValue(2);
    slider->SetMaxValue(30);
    slider->SetValue(30);
    slider->AllSkin()->SetSkinClass("Slider");
    EXPECT_TRUE(slider->Transparent());
    EXPECT_EQ(slider->NumThumbStates(), 2);
    EXPECT_EQ(slider->ThumbRect(), QRect(123, 7, 14, 14));
    const QImage shot = Render(*slider);
    EXPECT_GT(qAlpha(shot.pixel(slider->ThumbRect().center())), 0);
    EXPECT_GT(qAlpha(shot.pixel(60, 14)), 0);  // the ruler
    EXPECT_EQ(qAlpha(shot.pixel(60, 2)), 0);   // nothing else
}

}  // namespace
}  // namespace qpt
