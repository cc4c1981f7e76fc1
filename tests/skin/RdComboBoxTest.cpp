#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

#include "skin/PngImage.h"
#include "skin/RdComboBox.h"
#include "tests/skin/RealSkin.h"
#include "tests/skin/SkinPackageBuilder.h"

namespace qpt {
namespace {

void SetPicture(TRdPictureProperty* property, QRgb color) {
    auto png = std::make_unique<TPngImage>();
    ASSERT_TRUE(png->LoadFromBytes(testing::PngBytes(60, 30, color)));
    property->Picture().SetGraphic(std::move(png));
}

void Mouse(QWidget& widget, QEvent::Type type, QPoint point) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons buttons =
        type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, point, widget.mapToGlobal(point), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}
void Key(QWidget& widget, int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

QImage Render(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// A font-size drop-down of the style bar: ten sizes, five rows shown.
class FontSizeCombo : public ::testing::Test {
protected:
    void SetUp() override {
        combo.resize(120, 30);
        combo.SetItemHeight(24);
        combo.setMaxVisibleItems(5);
        for (int size = 8; size < 18; ++size)
            combo.addItem(QString::number(size));
        combo.setCurrentIndex(2);
        combo.SetItemHotBgColor(0x000000FF);  // red, stored as BGR
        combo.OnDropDownShow = [this](TRdComboBox&) { ++shown; };
        combo.OnSelect = [this](TRdComboBox& c) { selected.push_back(c.currentIndex()); };
        combo.show();
    }
    TRdComboBoxList& List() { return *combo.ListForm()->ListBox(); }
    QPoint Row(int visibleRow) { return {10, visibleRow * 24 + 12}; }

    TRdComboBox combo;
    int shown = 0;
    std::vector<int> selected;
};

TEST_F(FontSizeCombo, OpensItsOwnListFormSizedToTheRows) {
    combo.showPopup();
    TRdComboboxListForm* form = combo.ListForm();
    ASSERT_TRUE(form->isVisible());
    EXPECT_TRUE(form->isWindow());
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(combo.FaceState(), TRdComboBox::fsClick);
    EXPECT_EQ(form->objectName(), "ListForm");
    EXPECT_EQ(form->findChild<QWidget*>("Bg"), form->Bg());
    EXPECT_EQ(form->findChild<QWidget*>("ListBox"), &List());
    EXPECT_EQ(form->findChild<QWidget*>("VScroll"), combo.VScrollBar());
    EXPECT_EQ(form->size(), QSize(120, 5 * 24 + 2));
    EXPECT_EQ(form->pos(), combo.mapToGlobal(QPoint(0, 30)));
    // Ten rows in five: the bar shows and the list leaves room for it.
    EXPECT_TRUE(combo.VScrollBar()->isVisible());
    EXPECT_EQ(List().width() + form->ScrollBarWidth(), 118);
    EXPECT_EQ(List().ItemIndex(), 2);
    EXPECT_EQ(List().Items().size(), 10);

    combo.showPopup();  // already open: not told twice
    EXPECT_EQ(shown, 1);
}

TEST_F(FontSizeCombo, HoverSelectsTheRowAtOnceAndPaintsIt) {
    combo.showPopup();
    const int top = List().TopIndex();
    Mouse(List(), QEvent::MouseMove, Row(3));
    EXPECT_EQ(List().ItemIndex(), top + 3);
    EXPECT_EQ(combo.currentIndex(), 2);  // nothing chosen yet
    const QImage shot = Render(List());
    EXPECT_EQ(shot.pixel(List().width() - 1, 3 * 24 + 1), qRgb(255, 0, 0));
    EXPECT_NE(shot.pixel(List().width() - 1, 2 * 24 + 1), qRgb(255, 0, 0));
    // Keys go on from the hovered row and scroll the bar with the list.
    Key(List(), Qt::Key_End);
    EXPECT_EQ(List().ItemIndex(), 9);
    EXPECT_EQ(List().TopIndex(), 5);
    EXPECT_EQ(combo.VScrollBar()->Position(), 5);
    combo.VScrollBar()->SetPosition(1);
    EXPECT_EQ(List().TopIndex(), 1);
}

TEST_F(FontSizeCombo, OnlyRowsCutByTheListShowAHint) {
    const QString longText = "A font name far too long for the drop-down list";
    combo.addItem(longText);
    combo.showPopup();
    TRdComboBoxList& list = List();
    list.SetTopIndex(list.MaxTopIndex());  // the long row is last
    const int longRow = 10 - list.TopIndex();
    Mouse(list, QEvent::MouseMove, Row(longRow));
    EXPECT_EQ(list.Hint(), longText);
    Mouse(list, QEvent::MouseMove, Row(longRow - 1));
    EXPECT_EQ(list.Hint(), "");

    // The edge of the rule: the text width plus 3 plus the bar's width.
    const int edge =
        list.fontMetrics().horizontalAdvance("17") + 3 + combo.ListForm()->ScrollBarWidth();
    list.resize(edge, list.height());
    Mouse(list, QEvent::MouseMove, {-5, 5});  // off every row
    Mouse(list, QEvent::MouseMove, Row(longRow - 1));
    EXPECT_EQ(list.Hint(), "17");
    Mouse(list, QEvent::MouseMove, {-5, 5});
    EXPECT_EQ(list.Hint(), "");
    list.resize(edge + 1, list.height());
    Mouse(list, QEvent::MouseMove, Row(longRow - 1));
    EXPECT_EQ(list.Hint(), "");

    combo.SetShowHint(false);
    Mouse(list, QEvent::MouseMove, Row(longRow));
    EXPECT_EQ(list.Hint(), "");
}

TEST_F(FontSizeCombo, ClickOrReturnChoosesAndClosesEscapeOrFocusLossOnlyClose) {
    int activated = 0;
    QObject::connect(&combo, &QComboBox::activated, [&] { ++activated; });
    combo.showPopup();
    const int top = List().TopIndex();
    Mouse(List(), QEvent::MouseMove, Row(1));
    Mouse(List(), QEvent::MouseButtonPress, Row(1));
    Mouse(List(), QEvent::MouseButtonRelease, Row(1));
    EXPECT_FALSE(combo.DroppedDown());
    EXPECT_EQ(combo.currentIndex(), top + 1);
    EXPECT_EQ(selected, std::vector<int>{top + 1});
    EXPECT_EQ(activated, 1);
    EXPECT_NE(combo.FaceState(), TRdComboBox::fsClick);

    combo.showPopup();
    Key(List(), Qt::Key_Down);
    Key(List(), Qt::Key_Return);
    EXPECT_FALSE(combo.DroppedDown());
    EXPECT_EQ(combo.currentIndex(), top + 2);

    combo.showPopup();
    Key(List(), Qt::Key_Down);
    Key(List(), Qt::Key_Escape);
    EXPECT_FALSE(combo.DroppedDown());
    EXPECT_EQ(combo.currentIndex(), top + 2);
    EXPECT_EQ(selected.size(), 2u);

    // A press on the closed face opens the list; losing the focus closes it.
    Mouse(combo, QEvent::MouseButtonPress, {60, 15});
    Mouse(combo, QEvent::MouseButtonRelease, {60, 15});
    EXPECT_TRUE(combo.DroppedDown());
    QEvent deactivate(QEvent::WindowDeactivate);
    QApplication::sendEvent(combo.ListForm(), &deactivate);
    EXPECT_FALSE(combo.DroppedDown());
    EXPECT_EQ(combo.currentIndex(), top + 2);
    EXPECT_EQ(shown, 4);
}

TEST_F(FontSizeCombo, ClosedFaceKeysStepTheChoiceAndOpenOurOwnList) {
    Key(combo, Qt::Key_Down);
    EXPECT_EQ(combo.currentIndex(), 3);
    EXPECT_EQ(selected, std::vector<int>{3});
    Key(combo, Qt::Key_F4);
    EXPECT_TRUE(combo.DroppedDown());
    EXPECT_EQ(List().ItemIndex(), 3);
    combo.hidePopup();
    EXPECT_EQ(shown, 1);
}

TEST_F(FontSizeCombo, ClosedFaceShowsThePictureOfItsState) {
    SetPicture(combo.Background(), qRgb(200, 0, 0));
    SetPicture(combo.BackgroundHot(), qRgb(0, 200, 0));
    SetPicture(combo.BackgroundClick(), qRgb(0, 0, 200));
    SetPicture(combo.BackgroundFocus(), qRgb(200, 200, 0));
    combo.BackgroundOption()->Rect().Set(5, 8, 30, 8, TSuperStretchMode::sdmDefault);
    const QPoint corner(1, 1);
    EXPECT_EQ(Render(combo).pixel(corner), qRgb(200, 0, 0));

    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), combo.mapToGlobal(QPointF(5, 5)));
    QApplication::sendEvent(&combo, &enter);
    EXPECT_EQ(combo.FaceState(), TRdComboBox::fsHot);
    EXPECT_EQ(Render(combo).pixel(corner), qRgb(0, 200, 0));
    combo.showPopup();
    EXPECT_EQ(Render(combo).pixel(corner), qRgb(0, 0, 200));
    combo.hidePopup();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&combo, &leave);
    combo.clearFocus();
    EXPECT_EQ(Render(combo).pixel(corner), qRgb(200, 0, 0));
    combo.activateWindow();
    combo.setFocus();
    if (combo.hasFocus()) {
        EXPECT_EQ(Render(combo).pixel(corner), qRgb(200, 200, 0));
    }

    // A state without a picture of its own shows the normal one.
    combo.setEnabled(false);
    EXPECT_EQ(combo.FaceState(), TRdComboBox::fsDisable);
    EXPECT_EQ(Render(combo).pixel(corner), qRgb(200, 0, 0));
    SetPicture(combo.BackgroundDisable(), qRgb(90, 90, 90));
    EXPECT_EQ(Render(combo).pixel(corner), qRgb(90, 90, 90));
}

TEST(ComboBox, KeepsItsSettingsUnderTheirNames) {
    TRdComboBox combo;
    EXPECT_TRUE(combo.setProperty("ItemHeight", 24));
    EXPECT_EQ(combo.ListForm()->ListBox()->ItemHeight(), 24);
    EXPECT_TRUE(combo.setProperty("Style", "csDropDown"));
    ASSERT_TRUE(combo.isEditable());
    // The typing field takes the text's place, clear of the arrow.
    combo.resize(120, 30);
    combo.show();
    EXPECT_EQ(combo.lineEdit()->geometry(), QRect(4, 0, 100, 30));
    combo.SetTextOffX(10);
    EXPECT_EQ(combo.lineEdit()->geometry(), QRect(10, 0, 94, 30));
    EXPECT_TRUE(combo.setProperty("BorderColor", 0x00112233u));
    EXPECT_EQ(combo.ListForm()->Bg()->BorderColor(), 0x00112233u);
    combo.showPopup();  // nothing to show
    EXPECT_FALSE(combo.DroppedDown());
}

// A hidden box holds its font change back from the stock list it never
// shows; what it reports about its size must not go stale meanwhile.
TEST(ComboBox, AFontChangedWhileHiddenCountsForItsSizeAndOnceShown) {
    TRdComboBox combo;
    combo.addItem("Sample text");
    combo.Font()->SetHeight(-10);
    const QSize small = combo.sizeHint();
    combo.Font()->SetHeight(-30);
    ASSERT_TRUE(combo.isHidden());
    const QSize large = combo.sizeHint();
    EXPECT_GT(large.height(), small.height());
    EXPECT_GT(large.width(), small.width());
    EXPECT_EQ(combo.minimumSizeHint().height(), large.height());

    combo.Font()->SetHeight(-12);
    combo.show();
    EXPECT_LT(combo.sizeHint().height(), large.height()) << "the change made while hidden";
    combo.Font()->SetHeight(-30);
    EXPECT_EQ(combo.sizeHint(), large) << "and one made while shown";
}

TEST(ComboBox, TakesTheStyleBarLookFromTheSkin) {
    testing::RealSkin skin;
    auto* combo = new TRdComboBox(&skin.form);
    combo->resize(120, 30);
    const quint32 plainHotBg = combo->ItemHotBgColor();
    combo->AllSkin()->SetSkinClass("combobox");
    combo->VScrollBar()->AllSkin()->SetSkinClass("scrollbar");
    ASSERT_FALSE(combo->Background()->Empty());
    EXPECT_EQ(combo->Background()->Graphic()->Width(), 60);
    EXPECT_FALSE(combo->BackgroundHot()->Empty());
    EXPECT_NE(combo->ItemHotBgColor(), plainHotBg);
    EXPECT_TRUE(combo->VScrollBar()->AutoHide());
    EXPECT_EQ(Render(*combo).pixel(60, 15), qRgb(0x2C, 0x30, 0x38));

    // The closed face's text must stand out from the dark picture.
    combo->addItem("PNG picture");
    const QImage face = Render(*combo);
    int brightest = 0;
    for (int y = 0; y < face.height(); ++y)
        for (int x = 0; x < 60; ++x)
            brightest = std::max(brightest, qGray(face.pixel(x, y)));
    EXPECT_GE(brightest, 0xB0);
}

}  // namespace
}  // namespace qpt
