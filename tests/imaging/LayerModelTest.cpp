#include <gtest/gtest.h>

#include <QBuffer>
#include <vector>

#include "imaging/IEImageLayer.h"
#include "imaging/IELayerList.h"
#include "imaging/IELayerStream.h"
#include "imaging/IELineLayer.h"
#include "imaging/IEPolylineLayer.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/IETextLayer.h"
#include "tests/imaging/LayerTestSupport.h"

namespace qpt {
namespace {

using testing::PixelAt;

TEST(LayerModel, ConstructorDefaultsPerClass) {
    TIELayerList list;
    auto shape = TIELayerList::CreateLayer(ielkShape, &list);
    auto& s = static_cast<TIEShapeLayer&>(*shape);
    EXPECT_EQ(s.Width, 100);
    EXPECT_EQ(s.Height, 100);
    EXPECT_EQ(s.BorderColor, clBlack);
    EXPECT_EQ(s.BorderWidth, 1);
    EXPECT_EQ(s.FillColor, 0x0000FFu);
    EXPECT_EQ(s.FillColor2, clNone);
    EXPECT_EQ(s.Shape, iesEllipse);
    EXPECT_EQ(s.Transparency, 255);
    EXPECT_EQ(s.Opacity, 1.0);
    EXPECT_TRUE(s.AntiAlias && s.Visible && s.VisibleBox && s.Selectable);
    EXPECT_EQ(s.RotateCenterX, 0.5);
    EXPECT_FALSE(s.Guid.isNull());

    auto line = TIELayerList::CreateLayer(ielkLine, &list);
    auto& l = static_cast<TIELineLayer&>(*line);
    EXPECT_EQ(l.LineColor, clBlack);
    EXPECT_EQ(l.LineFillColor, clWhite);
    EXPECT_EQ(l.LineShapeSize, 20);
    EXPECT_EQ(l.LabelFont.Name, "Arial");
    EXPECT_EQ(l.LabelFont.Size, 12);
    EXPECT_EQ(l.LabelPosition, 2);
    EXPECT_EQ(l.LabelAlignment, 6);
    EXPECT_EQ(l.LineStartShape + l.LineEndShape, 0);

    auto text = TIELayerList::CreateLayer(ielkText, &list);
    auto& t = static_cast<TIETextLayer&>(*text);
    EXPECT_EQ(t.Font.Size, 14);
    EXPECT_EQ(t.BorderColor, clNone);
    EXPECT_EQ(t.FillColor, clNone);
    EXPECT_TRUE(t.WordWrap);
    EXPECT_FALSE(t.AutoSize());

    auto poly = TIELayerList::CreateLayer(ielkPolyline, &list);
    EXPECT_EQ(poly->FillColor, clWhite);
    EXPECT_FALSE(static_cast<TIEPolylineLayer&>(*poly).PolylineClosed);

    auto image = TIELayerList::CreateLayer(ielkImage, &list);
    auto& im = static_cast<TIEImageLayer&>(*image);
    EXPECT_EQ(im.BorderColor, clNone);
    EXPECT_EQ(im.ResampleFilter, rfFastLinear);
    EXPECT_FALSE(im.UseResampleFilter);
    EXPECT_EQ(im.Picture().Width(), 0);
    EXPECT_NE(shape->Guid, line->Guid);

    EXPECT_THROW(TIELayerList::CreateLayer(6, &list), EIEException);
    try {
        list.LayersAdd(9);
        FAIL();
    } catch (const EIEException& e) {
        EXPECT_STREQ(e.what(), "Layer insertion error - Invalid Type: 9");
    }
}

TEST(LayerModel, StyleSettersReachLineFieldsAndMarkChange) {
    TIELayerList list;
    TIELayer* line = list.LayersAdd(ielkLine);
    list.NeedsUpdate = false;
    line->SetBorderWidth(7);
    line->SetBorderColor(0x123456);
    line->SetFillColor(0x654321);
    auto& l = static_cast<TIELineLayer&>(*line);
    EXPECT_EQ(l.LineWidth, 7);
    EXPECT_EQ(l.LineColor, 0x123456u);
    EXPECT_EQ(l.LineFillColor, 0x654321u);
    EXPECT_TRUE(line->Modified);
    EXPECT_TRUE(list.NeedsUpdate);

    // Other kinds keep only the common field.
    auto* shape = static_cast<TIEVectorLayer*>(list.LayersAdd(ielkShape));
    shape->CacheValid = true;
    shape->BeginUpdate();
    shape->SetBorderWidth(3);
    EXPECT_TRUE(shape->CacheValid) << "the update lock holds Changed back";
    shape->EndUpdate();
    shape->SetBorderWidth(4);
    EXPECT_FALSE(shape->CacheValid);
}

TEST(LayerModel, PolylinePointsAreRelativeToTheFirst) {
    TIELayerList list;
    auto& p = static_cast<TIEPolylineLayer&>(*list.LayersAdd(ielkPolyline));
    p.AddPoint(50, 60);
    EXPECT_EQ(p.PosX, 50);
    EXPECT_EQ(p.PosY, 60);
    EXPECT_EQ(p.Point(0), QPointF(0, 0));
    p.AddPoint(70, 65);
    p.AddPoint(70, 65);  // a repeat is dropped
    p.AddPoint(40, 90);
    EXPECT_EQ(p.PointCount(), 3);
    EXPECT_GE(p.PointCapacity(), 3);
    EXPECT_EQ(p.Point(2), QPointF(-10, 30));
    EXPECT_THROW(p.Point(3), EIEException);
    EXPECT_THROW(p.Point(-1), EIEException);
    p.SetBorderWidth(4);
    p.ApplyChanges();
    EXPECT_EQ(p.PosX, 40 - 2);
    EXPECT_EQ(p.PosY, 60 - 2);
    EXPECT_EQ(p.Width, 30 + 4);
    EXPECT_EQ(p.Height, 30 + 4);
}

TEST(LayerModel, ListOperationsAndTheirEvents) {
    TIELayerList list;
    std::vector<std::pair<int, TIELayerEvent>> plain, ex;
    list.OnLayerNotify = [&](int i, TIELayerEvent e) { plain.push_back({i, e}); };
    list.OnLayerNotifyEx = [&](int i, TIELayerEvent e) { ex.push_back({i, e}); };
    int undoSteps = 0;
    list.OnSaveObjectsUndo = [&] { ++undoSteps; };

    list.LayersAdd(ielkShape);
    list.LayersAdd(ielkText, QPointF(5, 6), QSizeF(30, 40), false);
    EXPECT_EQ(undoSteps, 1);
    EXPECT_EQ(list.LayersCount(), 3);
    EXPECT_EQ(list.LayersCurrent(), 2);
    EXPECT_EQ(list.GetLayer(2)->PosX, 5);
    EXPECT_EQ(list.GetLayer(2)->Width, 30);
    EXPECT_FALSE(list.GetLayer(1)->Selected) << "making a layer current deselects the others";

    plain.clear();
    ex.clear();
    list.Notify(1, ielBeginMoving);
    list.Notify(1, ielBeginCreating);
    list.Notify(1, ielMoved);
    list.LayersRemove(1);
    const std::vector<std::pair<int, TIELayerEvent>> exWanted = {{1, ielBeginMoving},
                                                                 {1, ielBeginCreating},
                                                                 {1, ielMoved},
                                                                 {1, ielBeforeRemove},
                                                                 {1, ielRemoved}};
    EXPECT_EQ(ex, exWanted);
    EXPECT_EQ(plain, (std::vector<std::pair<int, TIELayerEvent>>{{1, ielMoved}}));
    EXPECT_EQ(list.LayersCurrent(), 1);

    list.LayersRemove(0);
    list.ClearAnnotations();
    EXPECT_EQ(list.LayersCount(), 1) << "the picture's layer stays";
}

TEST(LayerModel, CascadeStepsAndRestarts) {
    TIELayerList list;
    list.ClientSize = QSizeF(400, 300);
    std::vector<double> xs;
    for (int i = 0; i < 5; ++i)
        xs.push_back(list.LayersAdd(ielkShape)->PosX);
    // 100 + 40k must stay within 300 - 50: 40, 80, 120 fit, 160 does not.
    EXPECT_EQ(xs, (std::vector<double>{40, 80, 120, 40, 80}));

    list.ClientSize = QSizeF(150, 150);  // 100 + 90 does not fit: no cascade
    EXPECT_EQ(list.LayersAdd(ielkShape)->PosX, 0);
}

// Two overlapping opaque rectangles, flattened: the older one ends on top.
TEST(LayerModel, FlattenPutsTheOlderMarkOnTop) {
    TIELayerList list;
    TIEBitmap& picture = *list.Background().Bitmap();
    ASSERT_TRUE(picture.Allocate(60, 40, ie24RGB));
    picture.Fill(clWhite);
    list.Background().FitToBitmap();
    auto addRect = [&](double x, TColor color) {
        auto& s =
            static_cast<TIEShapeLayer&>(*list.LayersAdd(ielkShape, QPointF(x, 10), QSizeF(20, 20)));
        s.Shape = iesRectangle;
        s.SetBorderColor(clNone);
        s.SetFillColor(color);
    };
    addRect(10, 0x0000FF);  // older, red
    addRect(20, 0x00FF00);  // newer, green
    list.Flatten();
    ASSERT_EQ(list.LayersCount(), 1);
    EXPECT_EQ(list.LayersCurrent(), 0);
    EXPECT_EQ(PixelAt(picture, 25, 20), 0x0000FFu) << "overlap shows the older mark";
    EXPECT_EQ(PixelAt(picture, 15, 20), 0x0000FFu);
    EXPECT_EQ(PixelAt(picture, 35, 20), 0x00FF00u);
    EXPECT_EQ(PixelAt(picture, 5, 5), clWhite);
    EXPECT_EQ(PixelAt(picture, 45, 20), clWhite);
}

TEST(LayerModel, MergeHonoursOpacityAndTransparency) {
    TIELayerList list;
    TIEBitmap& picture = *list.Background().Bitmap();
    ASSERT_TRUE(picture.Allocate(10, 10, ie24RGB));
    picture.Fill(clBlack);
    list.Background().FitToBitmap();
    TIELayer* s = list.LayersAdd(ielkShape, QPointF(0, 0), QSizeF(10, 10));
    static_cast<TIEShapeLayer*>(s)->Shape = iesRectangle;
    s->SetBorderColor(clNone);
    s->SetFillColor(clWhite);
    s->Opacity = 0.5;
    s->Transparency = 255;
    list.LayersMerge(0, 1);
    const TColor c = PixelAt(picture, 5, 5);
    EXPECT_NEAR(int(ColorR(c)), 128, 1);
    EXPECT_EQ(ColorR(c), ColorB(c));
}

// A mark reaching past the picture's corner: with the border fix the picture
// grows to hold it and keeps its old pixels in place; without, it is cut.
TEST(LayerModel, MergeGrowsThePictureToHoldWhatReachesPastIt) {
    for (bool fix : {true, false}) {
        TIELayerList list;
        list.AutoFixBorders = fix;
        list.BackgroundColor = 0x808080;
        TIEBitmap& picture = *list.Background().Bitmap();
        ASSERT_TRUE(picture.Allocate(30, 20, ie24RGB));
        picture.Fill(clWhite);
        list.Background().FitToBitmap();
        auto& s = static_cast<TIEShapeLayer&>(
            *list.LayersAdd(ielkShape, QPointF(-5, 12), QSizeF(10, 12)));
        s.Shape = iesRectangle;
        s.SetBorderColor(clNone);
        s.SetFillColor(clRed);
        list.Flatten();
        const TIELayer& merged = *list.GetLayer(0);
        if (!fix) {
            EXPECT_EQ(picture.Width(), 30);
            EXPECT_EQ(picture.Height(), 20);
            continue;
        }
        ASSERT_EQ(picture.Width(), 35);
        ASSERT_EQ(picture.Height(), 24);
        EXPECT_EQ(merged.PosX, -5);
        EXPECT_EQ(merged.PosY, 0);
        EXPECT_EQ(merged.Width, 35);
        EXPECT_EQ(PixelAt(picture, 0, 23), clRed) << "the part that was outside";
        EXPECT_EQ(PixelAt(picture, 4, 12), clRed);
        EXPECT_EQ(PixelAt(picture, 5, 11), clWhite) << "old pixels stay in place";
        EXPECT_EQ(PixelAt(picture, 34, 19), clWhite);
        EXPECT_EQ(PixelAt(picture, 0, 0), 0x808080u) << "the new margin";
        EXPECT_EQ(PixelAt(picture, 34, 23), 0x808080u);
        EXPECT_EQ(PixelAt(picture, 15, 23), 0x808080u);
    }
}

std::unique_ptr<TIELayerList> SampleList() {
    auto list = std::make_unique<TIELayerList>();
    TIEBitmap& picture = *list->Background().Bitmap();
    picture.Allocate(7, 5, ie24RGB);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 21; ++x)
            picture.Scanline(y)[x] = uint8_t(x * 11 + y);
    list->Background().FitToBitmap();
    auto& shape =
        static_cast<TIEShapeLayer&>(*list->LayersAdd(ielkShape, QPointF(1.5, 2), QSizeF(30, 20)));
    shape.Shape = iesArrow;
    shape.ArrowSize = 2;
    shape.Opacity = 0.25;
    shape.Name = "arrow";
    shape.DragStart = QPoint(31, 22);
    auto& poly = static_cast<TIEPolylineLayer&>(*list->LayersAdd(ielkPolyline));
    poly.AddPoint(3, 4);
    poly.AddPoint(9, 1);
    auto& text = static_cast<TIETextLayer&>(*list->LayersAdd(ielkText));
    text.Text = "Hello\nworld";
    text.Font = TIEFont{"DejaVu Sans", 20, 0x00FF00, true};
    auto& line = static_cast<TIELineLayer&>(*list->LayersAdd(ielkLine));
    line.SetEndPoints(QPointF(1, 1), QPointF(5, 9));
    list->SetLayersCurrent(2);
    return list;
}

QByteArray Save(const TIELayerList& list, bool pixels) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    SaveLayersToStream(buffer, list, pixels);
    return bytes;
}

void Load(const QByteArray& bytes, TIELayerList& list) {
    QBuffer buffer(const_cast<QByteArray*>(&bytes));
    buffer.open(QIODevice::ReadOnly);
    LoadLayersFromStream(buffer, list);
}

TEST(LayerStream, RoundTripKeepsEveryLayerAndThePixels) {
    auto original = SampleList();
    const QByteArray bytes = Save(*original, true);
    TIELayerList copy;
    Load(bytes, copy);
    ASSERT_EQ(copy.LayersCount(), original->LayersCount());
    EXPECT_EQ(copy.LayersCurrent(), 2);
    EXPECT_EQ(Save(copy, true), bytes) << "saving what was loaded gives the same stream";
    const TIEBitmap& picture = copy.Background().Picture();
    ASSERT_EQ(picture.Width(), 7);
    EXPECT_EQ(picture.Scanline(4)[20], 20 * 11 + 4);
    auto& poly = static_cast<TIEPolylineLayer&>(*copy.GetLayer(2));
    EXPECT_EQ(poly.Point(1), QPointF(6, -3));
    EXPECT_EQ(copy.GetLayer(1)->Name, "arrow");
    EXPECT_EQ(static_cast<TIETextLayer&>(*copy.GetLayer(3)).Font.Name, "DejaVu Sans");

    // Without pixels the picture in place is kept.
    TIELayerList other;
    other.Background().Bitmap()->Allocate(3, 3, ie24RGB);
    Load(Save(*original, false), other);
    EXPECT_EQ(other.Background().Picture().Width(), 3);
    EXPECT_EQ(other.LayersCount(), 5);
}

TEST(LayerStream, SingleLayerKeepsWhatTheStreamLacks) {
    auto list = SampleList();
    TIELayer& arrow = *list->GetLayer(1);
    QByteArray bytes;
    QBuffer out(&bytes);
    out.open(QIODevice::WriteOnly);
    SaveLayerToStream(out, arrow, false);
    arrow.PosX = 99;
    arrow.Opacity = 1;
    QBuffer in(&bytes);
    in.open(QIODevice::ReadOnly);
    LoadLayerFromStream(in, arrow);
    EXPECT_EQ(arrow.PosX, 1.5);
    EXPECT_EQ(arrow.Opacity, 0.25);
    in.seek(0);
    EXPECT_THROW(LoadLayerFromStream(in, *list->GetLayer(2)), EIEException) << "kind differs";
}

TEST(LayerStream, BadStreamsRaiseAndLeaveTheListAlone) {
    auto list = SampleList();
    const QByteArray good = Save(*list, true);
    auto expectError = [&](const QByteArray& bytes, const char* message) {
        TIELayerList target;
        target.LayersAdd(ielkShape);
        try {
            Load(bytes, target);
            ADD_FAILURE() << "no error for " << message;
        } catch (const EIEException& e) {
            EXPECT_STREQ(e.what(), message);
        }
        EXPECT_EQ(target.LayersCount(), 2);
    };
    const char* corrupted = "Layer stream has been corrupted";
    for (qsizetype cut : {qsizetype(0), qsizetype(3), qsizetype(10), qsizetype(40), good.size() / 2,
                          good.size() - 1})
        expectError(good.left(cut), corrupted);
    QByteArray badMagic = good;
    badMagic[0] = 'X';
    expectError(badMagic, corrupted);
    QByteArray newer = good;
    newer[4] = 2;  // version, after the four magic bytes
    expectError(newer, "Unsupported layer stream version. Update software to newer version");
    QByteArray badKind = good;
    badKind[14] = 9;  // the first record's kind, after header, count and current
    expectError(badKind, corrupted);
}

}  // namespace
}  // namespace qpt
