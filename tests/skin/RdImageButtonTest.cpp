// The image button driven through Qt's own mouse delivery, checked by its
// states and by the pixels it paints.
#include <gtest/gtest.h>

#include "skin/SkinReader.h"
#include "tests/skin/ImageButtonStage.h"
#include "tests/skin/WindowPointer.h"

namespace qpt {
namespace {

using namespace testing;
using Stage = ImageButtonStage;

const QPoint kBody(20, 20);
const QPoint kOnIcon(95, 20);
const QPoint kOutside(150, 80);  // on the window, off the button

TEST(RdImageButton, StateTableFollowsHoverPressAndRelease) {
    Stage stage;
    WindowPointer pointer(stage.window);
    TRdImageButton& button = *stage.button;
    EXPECT_EQ(stage.Body(), kNormal);

    pointer.Move(button, kBody);
    EXPECT_TRUE(button.MouseIn());
    EXPECT_EQ(stage.Body(), kOver);
    pointer.Press(button, kBody);
    EXPECT_EQ(button.ButtonState(), 1);
    EXPECT_EQ(stage.Body(), kDown);
    pointer.Release(button, kBody);
    EXPECT_EQ(button.ButtonState(), 0);
    EXPECT_EQ(stage.clicks, 1);
    EXPECT_EQ(stage.Body(), kOver);

    pointer.Move(stage.window, kOutside);
    EXPECT_FALSE(button.MouseIn());
    EXPECT_EQ(stage.Body(), kNormal);

    // Without a down picture the hover one stays while pressed.
    button.ImageDown()->Clear();
    pointer.Move(button, kBody);
    pointer.Press(button, kBody);
    EXPECT_EQ(stage.Body(), kOver);
    pointer.Release(button, kBody);
}

TEST(RdImageButton, SelectedButtonIgnoresTheMouse) {
    Stage stage;
    WindowPointer pointer(stage.window);
    TRdImageButton& button = *stage.button;
    pointer.Move(button, kBody);
    ASSERT_TRUE(button.MouseIn());
    button.SetState(3);
    EXPECT_FALSE(button.MouseIn());
    EXPECT_EQ(stage.Body(), kSelected);

    pointer.Move(button, QPoint(30, 25));
    pointer.Press(button, kBody);
    EXPECT_EQ(button.ButtonState(), 3);
    EXPECT_FALSE(button.MouseIn());
    EXPECT_EQ(stage.Body(), kSelected);
    pointer.Release(button, kBody);
    EXPECT_EQ(button.ButtonState(), 3);

    button.SetState(0);
    EXPECT_EQ(stage.Body(), kNormal);
    // Out-of-range states are refused.
    button.SetState(7);
    EXPECT_EQ(button.ButtonState(), 0);
}

TEST(RdImageButton, OnlyANormalPictureStaysTheSameOnHover) {
    QWidget window;
    window.resize(100, 60);
    TRdImageButton button(&window);
    button.setGeometry(0, 0, 50, 30);
    SetPicture(button.ImageNormal(), kNormal);
    WindowPointer pointer(window);
    const QImage before = Shot(button);
    pointer.Move(button, QPoint(10, 10));
    EXPECT_TRUE(button.MouseIn());
    EXPECT_EQ(Shot(button), before);
    pointer.Press(button, QPoint(10, 10));
    EXPECT_EQ(Shot(button), before);
    pointer.Release(button, QPoint(10, 10));
}

TEST(RdImageButton, PressEndingOutsideGivesNoClickAndReturnsToNormal) {
    Stage stage;
    WindowPointer pointer(stage.window);
    TRdImageButton& button = *stage.button;
    pointer.Move(button, kBody);
    pointer.Press(button, kBody);
    pointer.Move(stage.window, kOutside);
    EXPECT_EQ(button.ButtonState(), 1);
    pointer.Release(stage.window, kOutside);
    EXPECT_EQ(stage.clicks, 0);
    EXPECT_EQ(button.ButtonState(), 0);
    EXPECT_FALSE(button.MouseIn());
    EXPECT_EQ(stage.Body(), kNormal);
}

// A form hears the mouse on the button, and may light the button while the
// pointer is over something laid on top of it.
TEST(RdImageButton, TellsItsFormOfEnterPressAndReleaseAroundTheClick) {
    Stage stage;
    WindowPointer pointer(stage.window);
    TRdImageButton& button = *stage.button;
    QStringList heard;
    button.OnMouseEnter = [&](TRdImageButton&) { heard << "enter"; };
    button.OnMouseDown = [&](TRdImageButton& b, Qt::MouseButton which) {
        heard << QString("down %1 state %2").arg(int(which)).arg(b.ButtonState());
    };
    button.OnMouseUp = [&](TRdImageButton&, Qt::MouseButton which) {
        heard << QString("up %1 clicks %2").arg(int(which)).arg(stage.clicks);
    };
    pointer.Move(button, kBody);
    pointer.Press(button, kBody);
    pointer.Release(button, kBody);
    EXPECT_EQ(heard, QStringList({"enter", "down 1 state 0", "up 1 clicks 1"}));

    pointer.Move(stage.window, kOutside);
    ASSERT_FALSE(button.MouseIn());
    button.SetMouseIn(true);
    EXPECT_EQ(stage.Body(), kOver);
    pointer.Move(button, kBody);
    pointer.Move(stage.window, kOutside);
    EXPECT_EQ(stage.Body(), kNormal) << "leaving puts it out";
}

TEST(RdImageButton, WithoutFullClickOnlyAPressOnTheIconMovesIt) {
    Stage stage;
    stage.AddIcon();
    WindowPointer pointer(stage.window);
    TRdImageButton& button = *stage.button;
    ASSERT_EQ(stage.Icon(), kIcon);

    pointer.Move(button, kBody);
    EXPECT_EQ(button.IconState(), 0);
    button.SetIconCursor(-21);
    pointer.Move(button, kOnIcon);
    EXPECT_EQ(button.IconState(), 2);
    EXPECT_EQ(stage.Icon(), kIconHover);
    EXPECT_EQ(button.cursor().shape(), Qt::PointingHandCursor);
    pointer.Move(button, kBody);
    EXPECT_EQ(button.IconState(), 0);
    EXPECT_FALSE(button.testAttribute(Qt::WA_SetCursor));

    pointer.Press(button, kBody);
    EXPECT_EQ(button.IconState(), 0);
    EXPECT_EQ(button.ButtonState(), 1);
    pointer.Release(button, kBody);
    EXPECT_EQ(stage.clicks, 1);
    EXPECT_EQ(stage.iconClicks, 0);

    pointer.Move(button, kOnIcon);
    pointer.Press(button, kOnIcon);
    EXPECT_EQ(button.IconState(), 1);
    EXPECT_EQ(button.ButtonState(), 0);
    EXPECT_EQ(stage.Icon(), kIconDown);
    EXPECT_EQ(stage.Body(), kOver);
    pointer.Release(button, kOnIcon);
    EXPECT_EQ(stage.iconClicks, 1);
    EXPECT_EQ(stage.clicks, 1);
    EXPECT_EQ(button.IconState(), 2);

    // A press on the icon that ends off the button clicks nothing.
    pointer.Press(button, kOnIcon);
    pointer.Move(stage.window, kOutside);
    pointer.Release(stage.window, kOutside);
    EXPECT_EQ(stage.iconClicks, 1);
    EXPECT_EQ(button.IconState(), 0);
}

TEST(RdImageButton, WithFullClickTheIconFollowsTheButton) {
    Stage stage;
    stage.AddIcon();
    TRdImageButton& button = *stage.button;
    button.SetIconFullClick(true);
    WindowPointer pointer(stage.window);

    pointer.Move(button, kBody);
    EXPECT_EQ(button.IconState(), 2);
    pointer.Press(button, kBody);
    EXPECT_EQ(button.IconState(), 1);
    EXPECT_EQ(button.ButtonState(), 1);
    EXPECT_EQ(stage.Icon(), kIconDown);
    pointer.Release(button, kBody);
    EXPECT_EQ(button.IconState(), 2);
    pointer.Click(button, kOnIcon);
    EXPECT_EQ(stage.clicks, 2);
    EXPECT_EQ(stage.iconClicks, 0);

    // Selection locks the icon in its selected state and gives it back.
    SetPicture(button.DnSelectedIcon(), kSelected, QSize(10, 10));
    button.SetState(3);
    EXPECT_EQ(button.IconState(), 4);
    EXPECT_EQ(stage.Icon(), kSelected);
    pointer.Move(stage.window, kOutside);
    EXPECT_EQ(button.IconState(), 4);
    button.SetState(0);
    EXPECT_EQ(button.IconState(), 0);
}

TEST(RdImageButton, DisabledDrawsItsOwnPicturesOrTheNormalOnes) {
    Stage stage;
    stage.AddIcon();
    TRdImageButton& button = *stage.button;
    SetPicture(button.DnDisableIcon(), kDisabled, QSize(10, 10));
    button.setEnabled(false);
    EXPECT_EQ(button.ButtonState(), 2);
    EXPECT_EQ(stage.Body(), kDisabled);
    EXPECT_EQ(stage.Icon(), kDisabled);

    WindowPointer pointer(stage.window);
    pointer.Move(button, kBody);
    EXPECT_FALSE(button.MouseIn());
    EXPECT_EQ(stage.Body(), kDisabled);

    button.ImageDisabled()->Clear();
    button.DnDisableIcon()->Clear();
    EXPECT_EQ(stage.Body(), kNormal);
    EXPECT_EQ(stage.Icon(), kIcon);
    button.setEnabled(true);
    EXPECT_EQ(button.ButtonState(), 0);

    // Expanded, the button takes its expand picture and the other icon set.
    SetPicture(button.ExpandImage(), kSelected);
    SetPicture(button.UpNormalIcon(), kDown, QSize(10, 10));
    button.SetExpand(true);
    EXPECT_EQ(stage.Body(), kSelected);
    EXPECT_EQ(stage.Icon(), kDown);
}

TEST(RdImageButton, CaptionColourFollowsTheState) {
    Stage stage;
    TRdImageButton& button = *stage.button;
    button.Font()->SetColor(0x000000);  // black
    button.Font()->SetHeight(-20);
    button.Font()->SetStyle(TRdFont::fsBold);
    button.SetCaption(QStringLiteral("MMMM"));
    button.SetFontHoverColor(0xFFFFFF);  // white
    button.SetFontDownColor(clDefault);
    auto hasInk = [&](QRgb ink) {
        const QImage shot = Shot(button);
        for (int y = 0; y < shot.height(); ++y)
            for (int x = 0; x < shot.width(); ++x)
                if (shot.pixel(x, y) == ink) return true;
        return false;
    };
    EXPECT_TRUE(hasInk(qRgb(0, 0, 0)));
    WindowPointer pointer(stage.window);
    pointer.Move(button, kBody);
    EXPECT_TRUE(hasInk(qRgb(255, 255, 255)));
    EXPECT_FALSE(hasInk(qRgb(0, 0, 0)));
    pointer.Press(button, kBody);  // no down colour: the font's own
    EXPECT_TRUE(hasInk(qRgb(0, 0, 0)));
    pointer.Release(button, kBody);
}

TEST(RdImageButton, PublishedPropertiesTakeSkinValuesByName) {
    TRdImageButton button;
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "IconAlign", "taLeftJustify"),
              TSkinReader::TResult::Applied);
    EXPECT_EQ(button.IconAlign(), TImageButtonTypes::taLeftJustify);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "HoverEffect", "ibeDouble"),
              TSkinReader::TResult::Applied);
    EXPECT_EQ(button.HoverEffect(), TImageButtonTypes::ibeDouble);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "ImageOption.Left", "4"),
              TSkinReader::TResult::Applied);
    EXPECT_EQ(button.ImageOption()->Left(), 4);
    int changes = 0;
    button.OnCaptionChanged = [&](TRdImageButton&) { ++changes; };
    EXPECT_TRUE(button.setProperty("Caption", QStringLiteral("Save")));
    button.SetCaption(QStringLiteral("Save"));
    EXPECT_EQ(button.Caption(), "Save");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(button.property("TextOffset").toInt(), 20);
    EXPECT_EQ(button.property("FontDisabledColor").toUInt(), clGrayText);
}

}  // namespace
}  // namespace qpt
