#include "skin/RdEdit.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QtTest/QTest>

#include "tests/common/QtPrinters.h"
#include "tests/skin/SendInput.h"
#include "tests/skin/SolidPicture.h"

namespace qpt {
namespace {

using testing::RenderWidget;
using testing::SetSolidPicture;

constexpr QRgb kNormal = qRgb(10, 10, 10);
constexpr QRgb kSelected = qRgb(20, 20, 20);
constexpr QRgb kOver = qRgb(30, 30, 30);
constexpr QRgb kDisabled = qRgb(40, 40, 40);
constexpr QRgb kError = qRgb(50, 50, 50);
constexpr QRgb kEmpty = qRgb(60, 60, 60);

class RdEditTest : public ::testing::Test {
protected:
    void SetUp() override {
        edit.SetAutoSize(false);
        edit.setGeometry(0, 0, 120, 24);
        SetSolidPicture(*edit.ImageNormal(), 4, 4, kNormal);
        SetSolidPicture(*edit.ImageSelected(), 4, 4, kSelected);
        SetSolidPicture(*edit.ImageOver(), 4, 4, kOver);
        SetSolidPicture(*edit.ImageDisabled(), 4, 4, kDisabled);
        SetSolidPicture(*edit.ImageError(), 4, 4, kError);
        SetSolidPicture(*edit.ImageEmpty(), 4, 4, kEmpty);
        edit.FontNormal()->SetAntialiased(false);
        edit.FontNormal()->SetColor(0xFFFFFF);
    }

    // The picture shows in the corner, where no text ever goes.
    QRgb Corner() { return RenderWidget(edit).pixel(0, 0); }

    TRdEdit edit;
};

TEST_F(RdEditTest, PicturesTakeTurnsByState) {
    EXPECT_EQ(Corner(), kEmpty);
    edit.setText("text");
    EXPECT_EQ(Corner(), kNormal);
    testing::MouseEnter(edit, QPoint(5, 5));
    EXPECT_EQ(Corner(), kOver);

    edit.show();
    edit.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&edit));
    edit.setFocus();
    ASSERT_TRUE(edit.hasFocus());
    EXPECT_EQ(Corner(), kSelected);
    edit.SetErrorMode(true);
    EXPECT_EQ(Corner(), kError);
    edit.setEnabled(false);
    EXPECT_EQ(Corner(), kDisabled);

    // A state without a picture gives way to the next one that holds.
    edit.ImageDisabled()->Clear();
    EXPECT_EQ(edit.PictureState(), TRdEdit::esError);
    edit.ImageError()->Clear();
    edit.ImageOver()->Clear();
    edit.setEnabled(true);
    edit.SetErrorMode(false);
    edit.clearFocus();
    EXPECT_EQ(Corner(), kNormal);
    edit.setText("");
    EXPECT_EQ(Corner(), kEmpty);
}

TEST_F(RdEditTest, FontsFollowTheState) {
    edit.FontError()->SetHeight(-20);
    edit.FontDisabled()->SetColor(0x00FF00);
    EXPECT_EQ(edit.StateFont(), edit.FontNormal());
    EXPECT_EQ(edit.palette().color(QPalette::Text), QColor(255, 255, 255));
    edit.SetErrorMode(true);
    EXPECT_EQ(edit.StateFont(), edit.FontError());
    EXPECT_EQ(edit.font().pixelSize(), 20);
    edit.setEnabled(false);
    EXPECT_EQ(edit.StateFont(), edit.FontDisabled());
    EXPECT_EQ(edit.palette().color(QPalette::Disabled, QPalette::Text), QColor(0, 255, 0));

    edit.SetFontEmptyColor(0x0000FF);
    EXPECT_EQ(edit.palette().color(QPalette::PlaceholderText), QColor(255, 0, 0));
}

TEST_F(RdEditTest, TypingSelectingAndTheTextOverThePicture) {
    edit.show();
    edit.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&edit));
    edit.setFocus();
    edit.SetCharCase(TRdEdit::ecUpperCase);
    testing::TypeText(edit, "path/one");
    EXPECT_EQ(edit.text(), "PATH/ONE");
    testing::KeyClick(edit, Qt::Key_Backspace);
    EXPECT_EQ(edit.text(), "PATH/ON");

    edit.setCursorPosition(0);
    testing::KeyClick(edit, Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(edit.selectedText(), "PATH/ON");

    // Around the text the picture shows; the selection is drawn in the
    // highlight colour, and the white text still draws on the picture once
    // the selection is gone.
    const QColor highlight = edit.palette().color(QPalette::Active, QPalette::Highlight);
    auto count = [&](QRgb color) {
        const QImage shot = RenderWidget(edit);
        int n = 0;
        for (int y = 0; y < shot.height(); ++y)
            for (int x = 0; x < shot.width(); ++x)
                n += shot.pixel(x, y) == color;
        return n;
    };
    EXPECT_GT(count(highlight.rgb()), 20);
    EXPECT_EQ(RenderWidget(edit).pixel(119, 23), kSelected);
    edit.deselect();
    EXPECT_EQ(count(highlight.rgb()), 0);
    EXPECT_GT(count(qRgb(255, 255, 255)), 10);

    edit.SetCharCase(TRdEdit::ecLowerCase);
    EXPECT_EQ(edit.text(), "path/on");
    edit.SetPasswordChar("#");
    EXPECT_EQ(edit.displayText(), "#######");
    edit.SetPasswordChar("");
    EXPECT_EQ(edit.displayText(), "path/on");
}

TEST_F(RdEditTest, MarginsAndAutoSize) {
    edit.SetTextLeftMargin(6);
    edit.SetTextRightMargin(4);
    edit.SetBorderWidth(2);
    EXPECT_EQ(edit.textMargins(), QMargins(8, 2, 6, 2));
    edit.SetAutoSize(true);
    EXPECT_EQ(edit.height(), edit.fontMetrics().height() + 6);
    edit.FontNormal()->SetHeight(-30);
    EXPECT_EQ(edit.height(), QFontMetrics(edit.FontNormal()->ToQFont()).height() + 6);
}

}  // namespace
}  // namespace qpt
