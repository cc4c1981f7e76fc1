#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>

#include "skin/MenuLayout.h"
#include "skin/PngImage.h"
#include "skin/RdMenuCtrl.h"
#include "skin/RdMenuForm.h"
#include "skin/RdSkinMenu.h"
#include "support/color/ColorNames.h"
#include "tests/skin/RealSkin.h"
#include "tests/skin/SendInput.h"

namespace qpt {
namespace {

using namespace menulayout;
using namespace qpt::testing;

TEST(MenuLayout, BarWidthTextRectangleAndArrowRoom) {
    TMenuMetrics m;  // padding 2, icon space 3, left 4, right 8
    EXPECT_EQ(IconBarWidth(m), 2 * 3 + 16 + 2 * 2);
    m.IconMargin = 20;
    EXPECT_EQ(IconBarWidth(m), 2 * 3 + 20 + 2 * 2);
    m.IconMargin = 0;
    m.IconSize = QSize(24, 24);
    EXPECT_EQ(IconBarWidth(m), 34);
    m.IconSize = QSize(16, 16);

    const QRect paint(1, 10, 100, 22);
    EXPECT_EQ(TextRect(m, paint, false), QRect(1 + 4 + 2, 10, 100 - 6 - 10, 22));
    m.HasBar = true;
    // The bar adds icon + 2 x padding + 1 + 2 x icon space.
    EXPECT_EQ(TextRect(m, paint, false).left(), 1 + 4 + 2 + 16 + 4 + 1 + 6);
    EXPECT_EQ(TextRect(m, paint, true).right(), 100 - 2 - 8 - 16);
    m.ArrowWidth = 9;  // the room never shrinks below 16
    EXPECT_EQ(ArrowRoom(m), 16);
    m.ArrowWidth = 20;
    EXPECT_EQ(TextRect(m, paint, true).right(), 100 - 2 - 8 - 20);
    EXPECT_EQ(ArrowRect(m, paint, QSize(20, 8)), QRect(100 - 2 - 8 - 20 + 1, 17, 20, 8));
}

TEST(MenuLayout, RowsSeparatorsAndTheBarEdge) {
    TMenuMetrics m;
    m.ItemBorderWidth = 2;
    const TMenuLayout layout =
        Layout(m, {{false, true, false, 50, 14}, {true}, {false, false}, {false, true, true, 30}});
    ASSERT_EQ(layout.Rows.size(), 4u);
    EXPECT_EQ(layout.Rows[0], QRect(3, 3, layout.Size.width() - 6, 22));
    EXPECT_EQ(layout.Rows[1].height(), 2 * 3 + 1);
    EXPECT_TRUE(layout.Rows[2].isEmpty());
    EXPECT_EQ(layout.Rows[3].top(), 3 + 22 + 7);
    EXPECT_EQ(layout.Size.height(), 3 + 22 + 7 + 22 + 3);
    // The widest need: 50 + 6 + 10 against 30 + 6 + 10 + 16.
    EXPECT_EQ(layout.Size.width(), 2 + 66);
    EXPECT_EQ(PaintRect(m, layout.Rows[0]), QRect(1, 3, layout.Size.width() - 2, 22));

    const QRect client(QPoint(0, 0), layout.Size);
    const QRect separator = PaintRect(m, layout.Rows[1]);
    EXPECT_EQ(SeparatorLine(m, separator, client, true), QLine(3, 28, 64, 28));
    m.HasBar = true;
    EXPECT_EQ(SeparatorLine(m, separator, client, true).x1(), IconBarWidth(m) + 3);
    EXPECT_EQ(SeparatorLine(m, separator, client, false).x1(), 3);
    EXPECT_EQ(VertLine(m, client), QLine(27, 3, 27, layout.Size.height() - 4));
    EXPECT_EQ(IconBar(m, client), QRect(1, 1, 26, layout.Size.height() - 2));
}

TEST(MenuLayout, TallFontsAndIconsGrowTheRow) {
    TMenuMetrics m;
    m.ItemSeparatorBorder = -4;  // a line always takes a pixel
    EXPECT_EQ(RowHeight(m, {true}), 1);
    EXPECT_EQ(RowHeight(m, {false, true, false, 0, 30}), 34);
    m.HasBar = true;
    m.IconSize = QSize(32, 32);
    EXPECT_EQ(RowHeight(m, {false, true, false, 0, 14}), 36);
}

TEST(MenuLayout, IconCellOfTheShareMenu) {
    TMenuMetrics m;
    m.ItemPadding = 0;
    m.ItemHeight = 30;
    m.ItemLeftMargin = 20;
    m.ItemRightMargin = 10;
    m.IconOffsetX = 12;
    m.HasBar = true;
    const QRect paint(1, 1, 120, 30);
    EXPECT_EQ(IconCell(m, paint), QRect(1 + 3 + 12, 8, 16, 16));
    EXPECT_EQ(TextRect(m, paint, false).left(), 1 + 20 + 16 + 1 + 6);
}

TEST(MenuLayout, TwiceTheItemsServesEnabledFromTheSecondHalf) {
    EXPECT_EQ(IconChoice(1, 8, 4, true).Index, 5);
    EXPECT_EQ(IconChoice(1, 8, 4, false).Index, 1);
    EXPECT_FALSE(IconChoice(1, 8, 4, false).Gray);
    const TIconChoice single = IconChoice(1, 4, 4, false);
    EXPECT_EQ(single.Index, 1);
    EXPECT_TRUE(single.Gray);
    EXPECT_EQ(IconChoice(4, 4, 4, true).Index, -1);
    EXPECT_EQ(IconChoice(-1, 4, 4, true).Index, -1);
}

// A menu on show, with a log of what was clicked.
class SkinMenu : public ::testing::Test {
protected:
    void SetUp() override {
        open_ = Add("&Open");
        menu_.Items()->Add("-");
        Add("Locked")->SetEnabled(false);
        save_ = Add("&Save");
        more_ = Add("&More");
        more_->Add("Alpha")->OnClick = [this](TMenuItem& item) { clicked_ << item.Caption(); };
        more_->Add("Beta");
        menu_.OnHide = [this](TRdSkinMenu&) { ++hides_; };
        menu_.Popup(QPoint(50, 40));
    }
    void TearDown() override { menu_.CloseMenu(); }

    TMenuItem* Add(const QString& caption) {
        TMenuItem* item = menu_.Items()->Add(caption);
        item->OnClick = [this](TMenuItem& sender) { clicked_ << sender.Caption(); };
        return item;
    }
    TRdMenuCtrl* Ctrl(int level = 0) const { return menu_.Forms().value(level)->Ctrl(); }
    QPoint Centre(int index, int level = 0) const { return Ctrl(level)->ItemRect(index).center(); }

    TRdSkinMenu menu_;
    TMenuItem* open_ = nullptr;
    TMenuItem* save_ = nullptr;
    TMenuItem* more_ = nullptr;
    QStringList clicked_;
    int hides_ = 0;
};

TEST_F(SkinMenu, ArrowKeysSkipSeparatorsAndDisabledItemsAndWrap) {
    ASSERT_TRUE(menu_.Showing());
    TRdMenuCtrl* ctrl = Ctrl();
    EXPECT_EQ(ctrl->HotIndex(), -1);
    KeyClick(*ctrl, Qt::Key_Down);
    EXPECT_EQ(ctrl->HotIndex(), 0);
    KeyClick(*ctrl, Qt::Key_Down);
    EXPECT_EQ(ctrl->HotIndex(), 3);
    KeyClick(*ctrl, Qt::Key_Down);
    KeyClick(*ctrl, Qt::Key_Down);
    EXPECT_EQ(ctrl->HotIndex(), 0);
    KeyClick(*ctrl, Qt::Key_Up);
    EXPECT_EQ(ctrl->HotIndex(), 4);
    ctrl->SetHotIndex(2);  // disabled: refused
    EXPECT_EQ(ctrl->HotIndex(), -1);
}

TEST_F(SkinMenu, ReturnClicksAfterTheMenuHasClosed) {
    bool showingAtClick = true;
    save_->OnClick = [&](TMenuItem&) { showingAtClick = menu_.Showing(); };
    KeyClick(*Ctrl(), Qt::Key_Up);
    KeyClick(*Ctrl(), Qt::Key_Up);
    KeyClick(*Ctrl(), Qt::Key_Return);
    EXPECT_FALSE(showingAtClick);
    EXPECT_FALSE(menu_.Dismissed());
    EXPECT_EQ(hides_, 1);
}

TEST_F(SkinMenu, EscapeAndCloseMenuDismiss) {
    KeyClick(*Ctrl(), Qt::Key_Escape);
    EXPECT_FALSE(menu_.Showing());
    EXPECT_TRUE(menu_.Dismissed());
    EXPECT_EQ(hides_, 1);
    menu_.Popup(QPoint(10, 10));
    EXPECT_FALSE(menu_.Dismissed());
    menu_.CloseMenu();
    EXPECT_TRUE(menu_.Dismissed());
    EXPECT_EQ(hides_, 2);
    EXPECT_TRUE(clicked_.isEmpty());
}

TEST_F(SkinMenu, AcceleratorLetterChoosesItsItem) {
    KeyClick(*Ctrl(), Qt::Key_S, Qt::NoModifier, "s");
    EXPECT_EQ(clicked_, QStringList{"&Save"});
    EXPECT_FALSE(menu_.Showing());
}

TEST_F(SkinMenu, SubMenuOpensRightAndClosesLeft) {
    KeyClick(*Ctrl(), Qt::Key_M, Qt::NoModifier, "m");  // opens, does not click
    ASSERT_EQ(menu_.Forms().size(), 2);
    EXPECT_TRUE(clicked_.isEmpty());
    EXPECT_EQ(Ctrl(1)->HotIndex(), 0);
    EXPECT_GE(menu_.Forms()[1]->x(), menu_.Forms()[0]->frameGeometry().right());
    KeyClick(*Ctrl(1), Qt::Key_Left);
    EXPECT_EQ(menu_.Forms().size(), 1);
    EXPECT_TRUE(menu_.Showing());
    EXPECT_EQ(Ctrl()->SubForm(), nullptr);
    MouseMove(*Ctrl(), Centre(4));  // the same entry opens it again
    EXPECT_EQ(menu_.Forms().size(), 2);
    KeyClick(*Ctrl(1), Qt::Key_Escape);
    EXPECT_EQ(menu_.Forms().size(), 1);

    Ctrl()->SetHotIndex(4);
    KeyClick(*Ctrl(), Qt::Key_Right);
    KeyClick(*Ctrl(1), Qt::Key_Return);
    EXPECT_EQ(clicked_, QStringList{"Alpha"});
    EXPECT_FALSE(menu_.Showing());
}

TEST_F(SkinMenu, HoverMakesHotAndClickFires) {
    MouseMove(*Ctrl(), Centre(3));
    EXPECT_EQ(Ctrl()->HotIndex(), 3);
    MouseMove(*Ctrl(), Centre(1));  // a separator keeps the hot item
    EXPECT_EQ(Ctrl()->HotIndex(), 3);
    MouseClick(*Ctrl(), Centre(3));
    EXPECT_EQ(clicked_, QStringList{"&Save"});
    EXPECT_FALSE(menu_.Dismissed());
}

TEST_F(SkinMenu, HoverOpensTheSubMenuAndAPressOutsideClosesAll) {
    MouseMove(*Ctrl(), Centre(4));
    ASSERT_EQ(menu_.Forms().size(), 2);
    TRdMenuForm* sub = menu_.Forms()[1];
    // The open level holds the mouse; moving over the level below still works it.
    const QPoint overOpen = sub->mapFromGlobal(Ctrl()->mapToGlobal(Centre(0)));
    MouseMove(*sub, overOpen);
    EXPECT_EQ(Ctrl()->HotIndex(), 0);
    EXPECT_EQ(Ctrl()->SubForm(), nullptr);
    MouseMove(*Ctrl(), Centre(4));
    sub = menu_.Forms().value(1);
    ASSERT_NE(sub, nullptr);
    Press(*sub, QPoint(-300, -300));
    EXPECT_FALSE(menu_.Showing());
    EXPECT_TRUE(menu_.Dismissed());
    EXPECT_EQ(hides_, 1);
}

TEST_F(SkinMenu, ChangingItemsOnShowMeasuresAgain) {
    const int height = Ctrl()->height();
    QStringList changed;
    menu_.ItemChange = [&](TRdSkinMenu&, TMenuItem* item) { changed << item->Caption(); };
    save_->SetVisible(false);
    EXPECT_EQ(Ctrl()->height(), height - menu_.ItemHeight());
    EXPECT_EQ(changed, QStringList{"&Save"});
    EXPECT_EQ(menu_.Forms()[0]->height(), Ctrl()->height());
}

TEST(SkinMenuModes, ModalPopupReturnsOnlyOnceClosed) {
    TRdSkinMenu menu;
    menu.setProperty("ModalMenu", true);
    menu.Items()->Add("One");
    bool showingInside = false;
    QTimer::singleShot(0, &menu, [&] {
        showingInside = menu.Showing();
        menu.CloseMenu();
    });
    menu.Popup(QPoint(5, 5));
    EXPECT_TRUE(showingInside);
    EXPECT_FALSE(menu.Showing());

    menu.Items()->Items(0)->SetVisible(false);  // nothing to show: no window at all
    menu.Popup(QPoint(5, 5));
    EXPECT_FALSE(menu.Showing());
    EXPECT_TRUE(menu.Dismissed());
}

TEST(SkinMenuModes, ShadowPictureAndFormBorderMakeRoomAroundTheItems) {
    TRdSkinMenu menu;
    menu.Items()->Add("One");
    QImage shadow(12, 12, QImage::Format_ARGB32);
    shadow.fill(QColor(0, 0, 0, 80));
    auto png = std::make_unique<TPngImage>();
    png->SetPixels(shadow);
    menu.PictureShadow()->Picture().SetGraphic(std::move(png));
    menu.PictureShadowOpt()->Rect().Set(4, 3, 5, 6, TSuperStretchMode::sdmDefault);
    menu.FormBorder()->SetLeft(1);
    menu.Popup(QPoint(5, 5));
    TRdMenuForm* form = menu.Forms().value(0);
    EXPECT_EQ(form->Ctrl()->pos(), QPoint(5, 3));
    EXPECT_EQ(form->size(), form->Ctrl()->size() + QSize(10, 9));

    menu.setProperty("DropShadow", false);
    menu.Popup(QPoint(5, 5));
    form = menu.Forms().value(0);
    EXPECT_EQ(form->Ctrl()->pos(), QPoint(1, 0));
    menu.CloseMenu();
}

// Colours are 0x00BBGGRR.
constexpr quint32 kRed = 0x0000FF, kGreen = 0x00FF00, kBlue = 0xFF0000, kWhite = 0xFFFFFF,
                  kBlack = 0x000000;

QImage Render(QWidget* widget) {
    QImage image(widget->size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget->render(&image);
    return image;
}

class SkinMenuPixels : public SkinMenu {
protected:
    void SetUp() override {
        SkinMenu::SetUp();
        menu_.setProperty("ColorBackground", kWhite);
        menu_.setProperty("ColorBorder", kBlack);
        menu_.setProperty("ColorHighLight", kRed);
        menu_.setProperty("ColorSeparator", kGreen);
        menu_.setProperty("ColorIconBar", kBlue);
        menu_.setProperty("ColorVertLine", clDefault);
    }
};

TEST_F(SkinMenuPixels, HotItemBorderAndSeparator) {
    Ctrl()->SetHotIndex(3);
    const QImage image = Render(Ctrl());
    const QRect hot = Ctrl()->ItemRect(3);
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() - 1), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(hot.left(), hot.top()), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(hot.right(), hot.bottom()), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(hot.right(), hot.bottom() + 1), QColor(Qt::white));

    const QRect separator = Ctrl()->ItemRect(1);
    const int y = separator.top() + menu_.ItemSeparatorBorder();
    EXPECT_EQ(image.pixelColor(separator.left() + 2, y), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(separator.right() - 2, y), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(separator.right() - 1, y), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(separator.left() + 2, y - 1), QColor(Qt::white));
}

TEST_F(SkinMenuPixels, LightBorderRingsTheHotItem) {
    menu_.setProperty("LightBorder", true);
    Ctrl()->SetHotIndex(0);
    const QImage image = Render(Ctrl());
    const QRect hot = Ctrl()->ItemRect(0);
    const int y = hot.center().y();
    EXPECT_EQ(image.pixelColor(hot.left(), y), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(hot.left() + 1, y), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(hot.left() + 2, y), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(hot.right(), y), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(hot.right() - 1, y), QColor(Qt::white));
}

TEST_F(SkinMenuPixels, IconBarEdgeIconsAndGreyDisabledIcons) {
    TRdImageNoteList images;
    QImage pixels(16, 16, QImage::Format_ARGB32);
    pixels.fill(QColor(0, 200, 0));
    auto png = std::make_unique<TPngImage>();
    png->SetPixels(pixels);
    images.ImgNote()->Add("icon")->Picture()->Picture().SetGraphic(std::move(png));
    open_->SetImageIndex(0);
    menu_.Items()->Items(2)->SetImageIndex(0);  // the disabled one
    menu_.SetImages(&images);

    const TMenuMetrics m = Ctrl()->Metrics();
    ASSERT_TRUE(m.HasBar);
    const QImage image = Render(Ctrl());
    const int bar = IconBarWidth(m);
    EXPECT_EQ(image.pixelColor(1, image.height() / 2), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(bar, 2), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(bar + 1, 2), QColor(Qt::green));  // clDefault: separator colour
    EXPECT_EQ(image.pixelColor(bar + 2, 2), QColor(Qt::white));
    const QRect separator = Ctrl()->ItemRect(1);
    const int y = separator.top() + menu_.ItemSeparatorBorder();
    EXPECT_EQ(image.pixelColor(bar + 3, y), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(bar + 2, y), QColor(Qt::white));

    EXPECT_EQ(image.pixelColor(IconCell(m, Ctrl()->ItemRect(0)).center()), QColor(0, 200, 0));
    const QColor gray = image.pixelColor(IconCell(m, Ctrl()->ItemRect(2)).center());
    EXPECT_EQ(gray.red(), gray.green());
    EXPECT_EQ(gray.blue(), gray.green());
}

TEST_F(SkinMenuPixels, BuiltInCheckAndArrowStandIn) {
    open_->SetChecked(true);
    const QImage image = Render(Ctrl());
    const TMenuMetrics m = Ctrl()->Metrics();
    auto inked = [&](const QRect& cell) {
        for (int y = cell.top(); y <= cell.bottom(); ++y)
            for (int x = cell.left(); x <= cell.right(); ++x)
                if (image.pixelColor(x, y) != QColor(Qt::white) &&
                    image.pixelColor(x, y) != QColor(Qt::blue))
                    return true;
        return false;
    };
    EXPECT_TRUE(inked(IconCell(m, Ctrl()->ItemRect(0))));
    EXPECT_FALSE(inked(IconCell(m, Ctrl()->ItemRect(3))));
    EXPECT_TRUE(inked(ArrowRect(m, Ctrl()->ItemRect(4), QSize(16, 16))));
    EXPECT_FALSE(inked(ArrowRect(m, Ctrl()->ItemRect(3), QSize(16, 16))));
}

// The share menu takes its colours from the skin class every skin shares.
TEST(SkinMenuSkin, ShareMenuColoursComeFromTheSkin) {
    RealSkin skin;
    {
        TRdSkinMenu menu(&skin.form);
        menu.Items()->Add("Facebook");
        menu.AllSkin()->SetSkinClass("SkinMenu");
        menu.Popup(QPoint(0, 0));
        TRdMenuCtrl* ctrl = menu.Forms().value(0)->Ctrl();
        ctrl->SetHotIndex(0);
        const QImage image = Render(ctrl);
        EXPECT_EQ(image.pixelColor(0, 0), QColor("#41454F"));
        EXPECT_EQ(image.pixelColor(ctrl->ItemRect(0).topLeft()), QColor("#34507A"));
        EXPECT_EQ(menu.FontHighLight()->ToQColor(), QColor("#FFFFFF"));
        EXPECT_EQ(menu.FontNormal()->ToQColor(), QColor("#D2D6DE"));
        ctrl->SetHotIndex(-1);
        EXPECT_EQ(Render(ctrl).pixelColor(ctrl->ItemRect(0).topLeft()), QColor("#2A2D35"));
    }
}

}  // namespace
}  // namespace qpt
