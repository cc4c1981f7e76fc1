#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QScreen>

#include "skin/PngImage.h"
#include "skin/RdSkinHint.h"
#include "skin/RdSkinHintWindow.h"
#include "skin/UseSkinHint.h"

namespace qpt {
namespace {

using Parts = TRdSkinHintWindow::TParts;

TEST(RdSkinHint, SplitsAtTheFirstDoubleHash) {
    auto split = [](const QString& text) {
        const Parts parts = TRdSkinHintWindow::SplitHint(text);
        return QStringList{parts.Title, parts.Text};
    };
    EXPECT_EQ(split("Share##Send the picture"), QStringList({"Share", "Send the picture"}));
    EXPECT_EQ(split("a##b##c"), QStringList({"a", "b##c"}));
    EXPECT_EQ(split("plain # text"), QStringList({"", "plain # text"}));
    EXPECT_EQ(split("##only text"), QStringList({"", "only text"}));
    EXPECT_EQ(split("only title##"), QStringList({"only title", ""}));
}

TEST(RdSkinHint, WindowShowsBothPartsBelowThePointer) {
    TRdSkinHint hint;
    hint.setProperty("AlphaBlendAnimation", false);
    ASSERT_TRUE(hint.ActivateHint(QPoint(100, 100), "Share##Send the picture"));
    TRdSkinHintWindow* window = hint.Window();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->Title(), "Share");
    EXPECT_EQ(window->Text(), "Send the picture");
    EXPECT_EQ(window->size(), window->CalcHintSize());
    EXPECT_EQ(window->pos(), QPoint(100, 120));
    EXPECT_EQ(window->TitleRect().topLeft(), QPoint(hint.TextX(), hint.TextY()));
    EXPECT_GT(window->TextRect().top(), window->TitleRect().bottom());
    EXPECT_TRUE(window->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(hint.Alpha(), 255);

    // A long text wraps at MaxWidth.
    hint.setProperty("MaxWidth", 80);
    hint.ActivateHint(QPoint(100, 100), QString("word ").repeated(30));
    EXPECT_LE(window->width(), 80);
    EXPECT_GT(window->height(), 3 * QFontMetrics(hint.Font()->ToQFont()).height());
    hint.setProperty("MaxHeight", 30);
    hint.ActivateHint(QPoint(100, 100), QString("word ").repeated(30));
    EXPECT_EQ(window->height(), 30);
}

QImage Render(QWidget* window) {
    QImage image(window->size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    window->render(&image);
    return image;
}

TEST(RdSkinHint, PaintsTheBackgroundPictureOrAPlainFramedBox) {
    TRdSkinHint hint;
    hint.setProperty("HintColor", quint32(0x00FFFF));  // yellow, stored blue-green-red
    hint.setProperty("AlphaBlendAnimation", false);
    hint.ActivateHint(QPoint(10, 10), "x");
    QImage image = Render(hint.Window());
    EXPECT_EQ(image.pixelColor(0, 0), QColor(0x76, 0x76, 0x76));
    EXPECT_EQ(image.pixelColor(1, image.height() - 2), QColor(Qt::yellow));

    QImage pixels(8, 8, QImage::Format_ARGB32);
    pixels.fill(QColor(10, 20, 30));
    auto png = std::make_unique<TPngImage>();
    png->SetPixels(pixels);
    hint.BackgroundImage()->Picture().SetGraphic(std::move(png));
    image = Render(hint.Window());
    EXPECT_EQ(image.pixelColor(0, 0), QColor(10, 20, 30));
    EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() - 1), QColor(10, 20, 30));
}

TEST(RdSkinHint, GoesAboveThePointerAtTheBottomOfTheScreen) {
    TRdSkinHint hint;
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QPoint pointer(screen.right() - 2, screen.bottom() - 5);
    hint.ActivateHint(pointer, "near the corner");
    const QRect placed = hint.Window()->geometry();
    EXPECT_EQ(placed.bottom(), pointer.y() - 4);
    EXPECT_EQ(placed.right(), screen.right());
}

TEST(RdSkinHint, HandlersAdjustTextAndPlaceAndInactiveRefuses) {
    TRdSkinHint hint;
    hint.OnBeforeCalcHint = [](TRdSkinHint&, QString& text) { text += "##more"; };
    hint.OnCalcPosHint = [](TRdSkinHint&, QRect& rect) { rect.moveTo(5, 6); };
    ASSERT_TRUE(hint.ActivateHint(QPoint(100, 100), "Title"));
    EXPECT_EQ(hint.Window()->Title(), "Title");
    EXPECT_EQ(hint.Window()->Text(), "more");
    EXPECT_EQ(hint.Window()->pos(), QPoint(5, 6));

    TRdSkinHint refused;
    refused.OnBeforeCalcHint = [](TRdSkinHint&, QString& text) { text.clear(); };
    EXPECT_FALSE(refused.ActivateHint(QPoint(1, 1), "gone"));
    refused.SetActive(false);
    refused.OnBeforeCalcHint = nullptr;
    EXPECT_FALSE(refused.ActivateHint(QPoint(1, 1), "plain"));
    EXPECT_FALSE(refused.Window()->isVisible());
}

TEST(RdSkinHint, FadesInAndOutInEqualSteps) {
    TRdSkinHint hint;
    hint.setProperty("AlphaBlendAnimationTimes", 4);
    hint.setProperty("AlphaBlendAnimationInterval", 15);
    hint.ActivateHint(QPoint(10, 10), "fade");
    EXPECT_EQ(hint.Alpha(), 0);
    EXPECT_TRUE(hint.FadeTimer()->Enabled());
    EXPECT_EQ(hint.FadeTimer()->Interval(), 15);
    QList<int> steps;
    for (int i = 0; i < 4; ++i) {
        hint.FadeTimer()->Tick();
        steps << hint.Alpha();
    }
    EXPECT_EQ(steps, QList<int>({64, 128, 192, 255}));
    EXPECT_FALSE(hint.FadeTimer()->Enabled());

    hint.HideHint();
    EXPECT_FALSE(hint.Showing());
    EXPECT_TRUE(hint.Window()->isVisible());
    for (int i = 0; i < 4; ++i)
        hint.FadeTimer()->Tick();
    EXPECT_EQ(hint.Alpha(), 0);
    EXPECT_FALSE(hint.Window()->isVisible());

    // A translucent hint ends at its own value.
    hint.setProperty("AlphaBlend", true);
    hint.setProperty("AlphaBlendValue", 100);
    hint.ActivateHint(QPoint(10, 10), "fade");
    for (int i = 0; i < 10; ++i)
        hint.FadeTimer()->Tick();
    EXPECT_EQ(hint.Alpha(), 100);

    // No time between the steps: shown at once rather than never.
    hint.HideHint();
    hint.setProperty("AlphaBlendAnimationInterval", -5);
    hint.ActivateHint(QPoint(10, 10), "fade");
    EXPECT_EQ(hint.Alpha(), 100);
}

TEST(RdSkinHint, HidesAfterTheHidePause) {
    TRdSkinHint hint;
    hint.setProperty("AlphaBlendAnimation", false);
    hint.setProperty("HintHidePause", 20000);
    hint.ActivateHint(QPoint(10, 10), "stays a while");
    EXPECT_TRUE(hint.HideTimer()->Enabled());
    EXPECT_EQ(hint.HideTimer()->Interval(), 20000);
    hint.HideTimer()->Tick();
    EXPECT_FALSE(hint.Window()->isVisible());
    EXPECT_FALSE(hint.HideTimer()->Enabled());

    hint.setProperty("HintHidePause", 0);  // stays until the mouse leaves
    hint.ActivateHint(QPoint(10, 10), "stays");
    EXPECT_FALSE(hint.HideTimer()->Enabled());
}

bool AskToolTip(QWidget* control) {
    QHelpEvent event(QEvent::ToolTip, QPoint(2, 2), control->mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(control, &event);
    return event.isAccepted();
}

TEST(UseSkinHint, FormControlsGetTheSkinnedHint) {
    QWidget form;
    form.resize(200, 100);
    auto* button = new QLabel("share", &form);
    auto* inner = new QWidget(button);
    auto* other = new QLabel("other", &form);
    button->setToolTip("Share##Send it");
    other->setToolTip("Other");
    TUseSkinHint use(&form);
    use.Hint()->setProperty("AlphaBlendAnimation", false);
    TRdSkinHint custom;
    custom.setProperty("AlphaBlendAnimation", false);
    use.SetControlHint(button, &custom);
    EXPECT_EQ(TUseSkinHint::Of(&form), &use);
    EXPECT_EQ(use.objectName(), "RdUseSkinHint");

    // The inner widget has no hint: the question goes on to the button.
    AskToolTip(inner);
    EXPECT_TRUE(custom.Showing());
    EXPECT_EQ(custom.Window()->Title(), "Share");
    EXPECT_EQ(custom.Control(), button);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(button, &leave);
    EXPECT_FALSE(custom.Window()->isVisible());

    AskToolTip(other);
    EXPECT_TRUE(use.Hint()->Showing());
    EXPECT_EQ(use.Hint()->Window()->Text(), "Other");

    // A second one on the form stays idle; a widget of another form is not ours.
    TUseSkinHint second(&form);
    EXPECT_EQ(TUseSkinHint::Of(&form), &use);
    QLabel stranger("x");
    stranger.setToolTip("stranger");
    AskToolTip(&stranger);
    EXPECT_FALSE(second.Hint()->Window()->isVisible());
    EXPECT_NE(use.Hint()->Window()->Text(), "stranger");
}

TEST(UseSkinHint, InactiveHintLeavesThePlainToolTip) {
    QWidget form;
    auto* label = new QLabel("x", &form);
    label->setToolTip("plain");
    TUseSkinHint use(&form);
    use.Hint()->SetActive(false);
    AskToolTip(label);
    EXPECT_FALSE(use.Hint()->Window()->isVisible());
}

}  // namespace
}  // namespace qpt
