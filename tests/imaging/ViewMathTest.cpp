#include <gtest/gtest.h>

#include <cstring>

#include "imaging/IEImageLayer.h"
#include "imaging/IELayerList.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/IEViewCompositor.h"
#include "imaging/IEViewMapping.h"
#include "tests/imaging/LayerTestSupport.h"

namespace qpt {
namespace {

using testing::PixelAt;

TEST(ViewMapping, FloatPathServesOutsideThePicture) {
    TIEViewMapping m;
    m.SetLayout(640, 480, 640, 480);
    EXPECT_EQ(m.XScr2Bmp(639), 639);
    EXPECT_EQ(m.XScr2Bmp(640), 640);
    EXPECT_EQ(m.YScr2Bmp(-3), -3);
    EXPECT_EQ(m.XBmp2Scr(700), 700);
    EXPECT_FALSE(m.SetZoom(100)) << "the zoom in force changes nothing";
    EXPECT_FALSE(m.SetZoom(0));
    EXPECT_FALSE(m.SetZoom(-5));
}

TEST(ViewMapping, CentresASmallPictureAndLimitsScrolling) {
    TIEViewMapping m;
    m.SetLayout(100, 80, 151, 60);
    EXPECT_EQ(m.OffsetX(), 25);
    EXPECT_EQ(m.OffsetY(), 0) << "taller than the client: no centring";
    EXPECT_EQ(m.ExtentX(), 100);
    EXPECT_EQ(m.ExtentY(), 60);
    m.SetViewXY(50, 50);
    EXPECT_EQ(m.ViewX(), 0) << "a narrower picture cannot scroll sideways";
    EXPECT_EQ(m.ViewY(), 20);
    m.SetZoom(200);
    EXPECT_EQ(m.MaxViewX(), 200 - 151);
    EXPECT_EQ(m.OffsetX(), 0);
    EXPECT_EQ(m.XScr2Bmp(11), 5);
    EXPECT_EQ(m.ViewY(), 20) << "the scroll position is kept where it is allowed";
    EXPECT_EQ(m.ViewBmpY(), 10);
}

// Every screen pixel lies in the span of the bitmap pixel it shows, and at
// zoom 100 or more every bitmap pixel's first screen pixel shows it.
TEST(ViewMapping, TablesAreExactInverses) {
    for (double zoom : {10.0, 33.0, 37.0, 50.0, 99.0, 100.0, 150.0, 233.0, 400.0}) {
        for (int scroll : {0, 17}) {
            TIEViewMapping m;
            m.SetZoom(zoom);
            m.SetLayout(301, 203, 160, 120);
            m.SetViewXY(scroll, scroll);
            const auto& s2b = m.ScrToBmpX();
            const auto& b2s = m.BmpToScrX();
            ASSERT_FALSE(s2b.empty());
            for (size_t i = 0; i < s2b.size(); ++i) {
                const int j = s2b[i] - m.ViewBmpX();
                ASSERT_GE(j, 0);
                ASSERT_LT(size_t(j), b2s.size());
                EXPECT_LE(b2s[size_t(j)], int(i)) << zoom;
                if (size_t(j) + 1 < b2s.size()) {
                    EXPECT_GT(b2s[size_t(j) + 1], int(i)) << zoom;
                }
                EXPECT_EQ(m.XScr2Bmp(int(i) + m.OffsetX()), s2b[i]);
            }
            for (size_t j = 0; j < b2s.size(); ++j) {
                const int shown = s2b[size_t(b2s[j])];
                if (zoom >= 100) {
                    EXPECT_EQ(shown, int(j) + m.ViewBmpX()) << zoom;
                } else {
                    EXPECT_GE(shown, int(j) + m.ViewBmpX()) << zoom;
                }
                EXPECT_EQ(m.XScr2Bmp(m.XBmp2Scr(int(j) + m.ViewBmpX())), shown);
            }
        }
    }
}

struct Scene {
    TIELayerList list;
    TIEViewCompositor view;
    Scene(int w, int h) {
        TIEBitmap& picture = *list.Background().Bitmap();
        picture.Allocate(w, h, ie24RGB);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w * 3; ++x)
                picture.Scanline(y)[x] = uint8_t(x * 7 + y * 13);
        list.Background().FitToBitmap();
        view.Mapping.SetLayout(w, h, w, h);
    }
};

bool SameBuffers(TIEBitmap& a, TIEBitmap& b) {
    if (a.Width() != b.Width() || a.Height() != b.Height()) return false;
    for (int y = 0; y < a.Height(); ++y)
        if (std::memcmp(a.Scanline(y), b.Scanline(y), size_t(a.Width()) * 3) != 0) return false;
    return true;
}

TEST(ViewCompositor, AtZoom100ThePictureIsCopiedAsItIs) {
    Scene s(64, 48);
    s.view.Compose(s.list);
    EXPECT_TRUE(SameBuffers(s.view.BackBuffer(), *s.list.Background().Bitmap()));
}

TEST(ViewCompositor, APictureOfOnePixelIsDrawnAndOnlyTheEmptyOneIsSkipped) {
    Scene s(1, 1);
    s.list.Background().Bitmap()->Fill(TColor(0x5A1EC8));
    s.view.Mapping.SetZoom(400);
    s.view.Mapping.SetLayout(1, 1, 4, 4);
    s.view.Compose(s.list);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            ASSERT_EQ(PixelAt(s.view.BackBuffer(), x, y), TColor(0x5A1EC8)) << x << "," << y;

    Scene empty(1, 1);
    empty.list.Background().Bitmap()->Free();
    empty.view.Compose(empty.list);  // nothing to draw, and no harm
}

TEST(ViewCompositor, ZoomedPaintAgreesWithTheTables) {
    Scene s(40, 30);
    s.view.ZoomFilter = rfNone;
    s.view.Mapping.SetZoom(300);
    s.view.Mapping.SetLayout(40, 30, 100, 70);
    s.view.Mapping.SetViewXY(7, 5);
    s.view.Compose(s.list);
    const TIEBitmap& picture = *s.list.Background().Bitmap();
    for (int y = 0; y < 70; y += 3)
        for (int x = 0; x < 100; x += 5)
            ASSERT_EQ(PixelAt(s.view.BackBuffer(), x, y),
                      PixelAt(picture, s.view.Mapping.XScr2Bmp(x), s.view.Mapping.YScr2Bmp(y)));
}

TEST(ViewCompositor, LinearZoomBlendsNeighbours) {
    Scene s(40, 30);
    s.view.Mapping.SetZoom(200);
    s.view.Mapping.SetLayout(40, 30, 80, 60);
    s.view.Compose(s.list);
    const TIEBitmap& picture = *s.list.Background().Bitmap();
    const TIEBitmap& back = s.view.BackBuffer();
    for (int y = 0; y < 29; ++y) {
        for (int x = 0; x < 39; ++x) {
            // Even screen pixels sit on a picture pixel, odd ones halfway.
            ASSERT_EQ(PixelAt(back, 2 * x, 2 * y), PixelAt(picture, x, y));
            const uint8_t a = picture.Scanline(y)[3 * x], b = picture.Scanline(y)[3 * x + 3];
            ASSERT_EQ(back.Scanline(2 * y)[6 * x + 3], (a + b + 1) / 2) << x << "," << y;
        }
    }
}

TEST(ViewCompositor, MovingALayerRecomposesOnlyWhatChanged) {
    Scene s(200, 150);
    s.list.LayersAdd(ielkShape, QPointF(10, 10), QSizeF(40, 30));
    TIELayer* moved = s.list.LayersAdd(ielkShape, QPointF(100, 60), QSizeF(30, 20));
    moved->Opacity = 0.6;
    moved->VisibleBox = false;
    s.view.Compose(s.list);
    EXPECT_TRUE(s.view.Compose(s.list).isEmpty()) << "nothing changed, nothing composed";

    moved->PosX = 120;
    moved->Changed(false);
    const QRegion damage = s.view.Compose(s.list);
    EXPECT_EQ(damage.boundingRect(), QRect(100, 60, 50, 20));

    Scene fresh(200, 150);
    fresh.list.LayersAdd(ielkShape, QPointF(10, 10), QSizeF(40, 30));
    TIELayer* placed = fresh.list.LayersAdd(ielkShape, QPointF(120, 60), QSizeF(30, 20));
    placed->Opacity = 0.6;
    placed->VisibleBox = false;
    fresh.view.Compose(fresh.list);
    EXPECT_TRUE(SameBuffers(s.view.BackBuffer(), fresh.view.BackBuffer()));

    s.list.LayersRemove(2);
    s.view.Compose(s.list);
    fresh.list.LayersRemove(2);
    fresh.view.Invalidate();
    fresh.view.Compose(fresh.list);
    EXPECT_TRUE(SameBuffers(s.view.BackBuffer(), fresh.view.BackBuffer()));
}

// While an outline is dragged bigger, what lies inside it is left alone;
// the result is still the same as composing from scratch.
TEST(ViewCompositor, AGrowingOutlineRedrawsOnlyItsEdges) {
    auto addOutline = [](Scene& s, double w, double h) {
        auto& rect = static_cast<TIEShapeLayer&>(
            *s.list.LayersAdd(ielkShape, QPointF(20, 20), QSizeF(w, h)));
        rect.Shape = iesRectangle;
        rect.SetFillColor(clNone);
        rect.SetBorderWidth(3);
        rect.VisibleBox = false;
        return &rect;
    };
    Scene s(400, 300);
    TIELayer* rect = addOutline(s, 300, 200);
    s.view.Compose(s.list);
    rect->Width = 340;
    rect->Height = 240;
    rect->Changed(true);
    const QRegion damage = s.view.Compose(s.list);
    EXPECT_TRUE(damage.contains(QPoint(20 + 339, 20 + 239)));
    EXPECT_FALSE(damage.contains(QPoint(180, 140)));

    Scene fresh(400, 300);
    addOutline(fresh, 340, 240);
    fresh.view.Compose(fresh.list);
    EXPECT_TRUE(SameBuffers(s.view.BackBuffer(), fresh.view.BackBuffer()));
}

TEST(ViewCompositor, GripsAndFrameOnlyWhereTheLayerShowsItsBox) {
    Scene s(120, 100);
    TIELayer* layer = s.list.LayersAdd(ielkShape, QPointF(30, 20), QSizeF(40, 50));
    layer->VisibleBox = false;  // as every finished mark is dressed
    const QPoint grips[] = {{30, 20}, {50, 20}, {70, 45}, {30, 70}};
    s.view.Compose(s.list);
    std::vector<TColor> plain;
    for (QPoint p : grips)
        plain.push_back(PixelAt(s.view.BackBuffer(), p.x(), p.y()));
    const TColor grip = 0xBAFFFF;
    s.view.ShowGrips = true;
    s.view.Compose(s.list);
    for (size_t i = 0; i < plain.size(); ++i)
        EXPECT_EQ(PixelAt(s.view.BackBuffer(), grips[i].x(), grips[i].y()), plain[i])
            << "no grip at " << grips[i].x() << "," << grips[i].y() << " without the box";

    layer->VisibleBox = true;  // selected with a visible box: a frame and grips
    EXPECT_FALSE(s.view.Compose(s.list).isEmpty()) << "showing the box redraws";
    for (QPoint p : grips)
        EXPECT_EQ(PixelAt(s.view.BackBuffer(), p.x(), p.y()), grip) << p.x() << "," << p.y();
    EXPECT_EQ(PixelAt(s.view.BackBuffer(), 29, 32), clBlack);
    EXPECT_EQ(PixelAt(s.view.BackBuffer(), 70, 32), clBlack);
    s.view.ShowGrips = false;
    s.view.Compose(s.list);
    EXPECT_EQ(PixelAt(s.view.BackBuffer(), 30, 20), plain[0]) << "the grip goes";
    EXPECT_EQ(PixelAt(s.view.BackBuffer(), 29, 32), clBlack) << "the frame stays";
}

TEST(ViewCompositor, LayerOpacityAndHiddenLayers) {
    Scene s(20, 20);
    s.list.Background().Bitmap()->Fill(clBlack);
    auto& rect =
        static_cast<TIEShapeLayer&>(*s.list.LayersAdd(ielkShape, QPointF(0, 0), QSizeF(20, 20)));
    rect.Shape = iesRectangle;
    rect.SetBorderColor(clNone);
    rect.SetFillColor(clWhite);
    rect.Transparency = 128;
    s.view.Compose(s.list);
    EXPECT_NEAR(int(ColorG(PixelAt(s.view.BackBuffer(), 10, 10))), 128, 1);
    rect.Visible = false;
    s.view.Compose(s.list);
    EXPECT_EQ(PixelAt(s.view.BackBuffer(), 10, 10), clBlack);
}

}  // namespace
}  // namespace qpt
