#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "skin/PngImage.h"
#include "skin/RdImageNote.h"
#include "skin/RdImageNoteList.h"

namespace qpt {
namespace {

void SetPicture(TPictureItem* item, QSize size, QColor color) {
    QImage pixels(size, QImage::Format_ARGB32);
    pixels.fill(color);
    auto png = std::make_unique<TPngImage>();
    png->SetPixels(pixels);
    item->Picture()->Picture().SetGraphic(std::move(png));
}

TPictureItem* AddPicture(TPictureCollection* list, QSize size, QColor color) {
    TPictureItem* item = list->Add(QStringLiteral("p%1").arg(list->Count()));
    SetPicture(item, size, color);
    return item;
}

TEST(RdImageNoteList, CellIsTheLargestPictureUnlessSizedByHand) {
    TRdImageNoteList list;
    EXPECT_EQ(QSize(list.Width(), list.Height()), QSize(16, 16));
    AddPicture(list.ImgNote(), QSize(20, 10), Qt::red);
    AddPicture(list.ImgNote(), QSize(8, 30), Qt::blue);
    list.ImgNote()->Add(QStringLiteral("empty"));
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(QSize(list.Width(), list.Height()), QSize(20, 30));
    EXPECT_FALSE(list.HasPicture(2));
    EXPECT_FALSE(list.HasPicture(-1));

    list.SetWidth(12);
    EXPECT_TRUE(list.CustomSize());
    EXPECT_EQ(QSize(list.Width(), list.Height()), QSize(12, 16));
    list.SetCustomSize(false);
    EXPECT_EQ(list.Width(), 20);
}

TEST(RdImageNoteList, UnifiedAndStretchedSizes) {
    TRdImageNoteList list;
    AddPicture(list.ImgNote(), QSize(8, 4), Qt::red);
    AddPicture(list.ImgNote(), QSize(40, 20), Qt::red);
    list.SetWidth(16);
    list.SetHeight(16);
    // Each picture at its own size until the sizes are unified.
    EXPECT_EQ(list.ItemSize(1), QSize(40, 20));
    list.SetUnifiedSize(true);
    EXPECT_EQ(list.ItemSize(0), QSize(8, 4));   // never blown up
    EXPECT_EQ(list.ItemSize(1), QSize(16, 8));  // made smaller, in proportion
    EXPECT_EQ(list.ItemRect(0, QRect(10, 10, 16, 16)), QRect(14, 16, 8, 4));
    list.SetStretchDraw(true);
    EXPECT_EQ(list.ItemSize(0), QSize(16, 16));
    EXPECT_TRUE(list.ItemSize(5).isEmpty());
}

TEST(RdImageNoteList, DrawsCentredAndInGrey) {
    TRdImageNoteList list;
    AddPicture(list.ImgNote(), QSize(4, 4), QColor(255, 0, 0));
    QImage canvas(16, 16, QImage::Format_ARGB32);
    canvas.fill(Qt::white);
    {
        QPainter painter(&canvas);
        EXPECT_TRUE(list.Draw(painter, 0, QRect(0, 0, 16, 16)));
        EXPECT_FALSE(list.Draw(painter, 1, QRect(0, 0, 16, 16)));
        list.Draw(painter, 0, QRect(0, 8, 8, 8), true);
    }
    EXPECT_EQ(canvas.pixelColor(6, 6), QColor(255, 0, 0));
    EXPECT_EQ(canvas.pixelColor(9, 9), QColor(255, 0, 0));
    EXPECT_EQ(canvas.pixelColor(5, 5), QColor(Qt::white));
    const QColor gray = canvas.pixelColor(3, 11);
    EXPECT_EQ(gray.red(), gray.green());
    EXPECT_EQ(gray.green(), gray.blue());
    EXPECT_LT(gray.red(), 255);
}

TEST(RdImageNoteList, SharesTheNotesPicturesAndTellsChanges) {
    TRdImageNote note;
    TRdImageNoteList list;
    int changes = 0;
    list.OnChange = [&] { ++changes; };
    list.SetImgNote(note.Items());
    EXPECT_EQ(changes, 1);
    AddPicture(note.Items(), QSize(16, 16), Qt::green);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_GE(changes, 2);
    EXPECT_TRUE(list.HasPicture(0));

    const int before = changes;
    list.SetImgNote(nullptr);
    EXPECT_EQ(list.Count(), 0);
    AddPicture(note.Items(), QSize(16, 16), Qt::green);
    EXPECT_EQ(changes, before + 1);  // the note's list is no longer followed
}

QColor CentreOf(TRdImageNote& note) {
    QImage image(note.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    note.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image.pixelColor(note.width() / 2, note.height() / 2);
}

TEST(RdImageNote, ShowsTheItemAtTheIndexAndHoldsItWhileLocked) {
    TRdImageNote note;
    note.resize(16, 16);
    int shown = 0;
    note.OnItemChanged = [&](TRdImageNote&) { ++shown; };
    AddPicture(note.Items(), QSize(16, 16), QColor(255, 0, 0));
    TPictureItem* second = AddPicture(note.Items(), QSize(16, 16), QColor(0, 0, 255));
    EXPECT_EQ(CentreOf(note), QColor(255, 0, 0));

    note.SetImageIndex(1);
    EXPECT_EQ(CentreOf(note), QColor(0, 0, 255));
    note.SetLocked(true);
    note.SetImageIndex(0);
    SetPicture(second, QSize(16, 16), QColor(0, 255, 0));
    EXPECT_EQ(CentreOf(note), QColor(0, 0, 255));
    const int whileLocked = shown;
    note.SetLocked(false);
    EXPECT_EQ(CentreOf(note), QColor(255, 0, 0));
    EXPECT_EQ(shown, whileLocked + 1);

    note.SetImageIndex(7);
    EXPECT_TRUE(note.Picture()->Empty());
    EXPECT_EQ(CentreOf(note).alpha(), 0);
}

}  // namespace
}  // namespace qpt
