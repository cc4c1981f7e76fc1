#include "imaging/IEViewCompositor.h"

#include <QPainter>
#include <cmath>
#include <cstring>

#include "imaging/IEBlend.h"
#include "imaging/IECanvas.h"
#include "imaging/IEImageCompose.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IELayerList.h"
#include "imaging/IEOpaqueRuns.h"
#include "imaging/IEVectorLayer.h"

namespace qpt {

QRect TIEViewCompositor::LayerRect(const TIELayer& layer) const {
    const int left = Mapping.XBmp2Scr(int(std::lround(layer.PosX)));
    const int top = Mapping.YBmp2Scr(int(std::lround(layer.PosY)));
    const int right = Mapping.XBmp2Scr(int(std::lround(layer.PosX + layer.Width)));
    const int bottom = Mapping.YBmp2Scr(int(std::lround(layer.PosY + layer.Height)));
    int dw = int(std::lround(layer.Width * Mapping.ZoomD100X()));
    int dh = int(std::lround(layer.Height * Mapping.ZoomD100Y()));
    if (std::abs(dw - (right - left)) == 1) dw = right - left;
    if (std::abs(dh - (bottom - top)) == 1) dh = bottom - top;
    return QRect(left, top, dw, dh);
}

bool TIEViewCompositor::Drawn(TIELayerList& layers, int index) const {
    TIELayer& layer = *layers.GetLayer(index);
    if (!layer.Visible || index == EditingLayer) return false;
    const TIEBitmap* picture = layer.Kind() == ielkImage ? layer.Bitmap() : nullptr;
    // Only the empty picture is skipped; one of a single pixel is a picture.
    return !picture || (picture->Width() >= 1 && picture->Height() >= 1);
}

std::vector<TIEViewCompositor::Shown> TIEViewCompositor::Snapshot(TIELayerList& layers) const {
    std::vector<Shown> shown;
    for (int i = 0; i < layers.LayersCount(); ++i) {
        TIELayer& layer = *layers.GetLayer(i);
        layer.ApplyChanges();
        QRect rect = LayerRect(layer);
        layer.ClientRect = rect;
        const bool framed = HasFrame(layers, i);
        const bool grips = HasGrips(layers, i);
        if (framed || grips)
            rect.adjust(-kGripRadius - 1, -kGripRadius - 1, kGripRadius + 2, kGripRadius + 2);
        shown.push_back({&layer,
                         rect,
                         Drawn(layers, i),
                         layer.ContentGeneration(),
                         IELayerOpacity(layer.Opacity, layer.Transparency) + (grips ? 256 : 0),
                         {}});
    }
    return shown;
}

QRegion TIEViewCompositor::Compose(TIELayerList& layers) {
    const int w = Mapping.ClientWidth(), h = Mapping.ClientHeight();
    const QRect client(0, 0, w, h);
    if (back_.Width() != w || back_.Height() != h || back_.PixelFormat() != ie24RGB) {
        if (back_.Location() != ieMemory) back_.SetLocation(ieMemory);
        if (w < 1 || h < 1 || !back_.Allocate(w, h, ie24RGB)) return {};
        fullRedraw_ = true;
    }
    std::vector<Shown> now = Snapshot(layers);
    bool full = fullRedraw_ || now.size() != shown_.size();
    QRegion damage = full ? QRegion(client) : stale_;
    stale_ = QRegion();
    for (size_t i = 0; i < now.size(); ++i) {
        if (!full && now[i].SameAs(shown_[i])) {
            now[i].cover = shown_[i].cover;
            continue;
        }
        now[i].cover = Cover(*layers.GetLayer(int(i)), now[i]);
        if (full) continue;
        if (now[i].layer != shown_[i].layer) {
            full = true;
            damage = client;
            continue;
        }
        damage += now[i].cover;
        damage += shown_[i].cover;
    }
    damage &= client;
    if (full) pending_ = QRegion();
    if (!ShownArea.isNull()) {
        pending_ += damage - ShownArea;
        damage &= ShownArea;
    }
    pending_ -= damage;
    for (const QRect& area : damage)
        ComposeArea(layers, area);
    shown_ = std::move(now);
    fullRedraw_ = false;
    layers.NeedsUpdate = false;
    return damage;
}

QRegion TIEViewCompositor::ComposePending(TIELayerList& layers, const QRegion& wanted) {
    const QRegion area = pending_ & wanted;
    for (const QRect& r : area)
        ComposeArea(layers, r);
    pending_ -= area;
    return area;
}

// An opaque picture hides the background, so only what lies beside it is filled.
QRegion TIEViewCompositor::BackgroundArea(TIELayerList& layers, const QRect& area) const {
    const TIELayer& picture = *layers.GetLayer(0);
    const TIEBitmap* alpha = layers.Background().Picture().AlphaChannelIfAny();
    const bool opaque = Drawn(layers, 0) &&
                        IELayerOpacity(picture.Opacity, picture.Transparency) == 255 &&
                        (!alpha || alpha->Full());
    return opaque ? QRegion(area) - picture.ClientRect : QRegion(area);
}

void TIEViewCompositor::ComposeArea(TIELayerList& layers, const QRect& area) {
    const uint8_t bgr[3] = {ColorB(Background), ColorG(Background), ColorR(Background)};
    for (const QRect& r : BackgroundArea(layers, area)) {
        for (int y = r.top(); y <= r.bottom(); ++y) {
            uint8_t* row = back_.Scanline(y) + 3 * r.left();
            for (int x = 0; x < r.width(); ++x)
                std::memcpy(row + 3 * x, bgr, 3);
        }
    }
    for (int i = 0; i < layers.LayersCount(); ++i)
        if (Drawn(layers, i)) ComposeLayer(*layers.GetLayer(i), area);
    DrawFrames(layers, area);
}

namespace {

// Asks for the cache lines that the runs of one cache row, cut to
// [begin, end), will read and write; dst is that row's place in the back buffer.
void PrefetchRuns(const TIEBitmap& cache, int row, const TIEOpaqueRuns& runs, int begin, int end,
                  const uint8_t* dst) {
    constexpr int kPixelsPerLine = 16;
    const uint8_t* src = cache.Scanline(row);
    for (auto [run, last] = runs.Row(row); run != last; ++run)
        for (int x = std::max(run->begin, begin); x < std::min(run->end, end);
             x += kPixelsPerLine) {
            __builtin_prefetch(src + 4 * x);
            __builtin_prefetch(dst + 3 * x, 1);
        }
}

}  // namespace

void TIEViewCompositor::ComposeLayer(TIELayer& layer, const QRect& area) {
    const QRect rect = layer.ClientRect;
    const QRect clip = rect & area;
    if (clip.isEmpty()) return;
    if (layer.Kind() == ielkImage) return ComposeImageLayer(layer, clip);
    auto& drawn = static_cast<TIEVectorLayer&>(layer);
    const TIEBitmap* cache = drawn.CacheFor(rect.width(), rect.height());
    if (!cache) return;
    const int k = IELayerOpacity(layer.Opacity, layer.Transparency);
    const TIEOpaqueRuns& runs = drawn.CacheRuns();
    const int sx = clip.left() - rect.left(), sy = clip.top() - rect.top();
    const int sxEnd = sx + clip.width();
    // Runs are short and scattered, so each one would wait for memory; the
    // rows a little ahead are asked for while this one is blended.
    constexpr int kRowsAhead = 6;
    // The back buffer row of cache row sy + y, placed so that cache column x is at 3 x.
    auto backRow = [&](int y) { return back_.Scanline(clip.top() + y) + 3 * (clip.left() - sx); };
    for (int y = 0; y < clip.height(); ++y) {
        uint8_t* dst = backRow(y);
        const uint8_t* src = cache->Scanline(sy + y);
        if (y + kRowsAhead < clip.height())
            PrefetchRuns(*cache, sy + y + kRowsAhead, runs, sx, sxEnd, backRow(y + kRowsAhead));
        for (auto [run, end] = runs.Row(sy + y); run != end; ++run) {
            const int b = std::max(run->begin, sx), e = std::min(run->end, sxEnd);
            if (b < e) IEBlendPremulRow(dst + 3 * b, src + 4 * b, e - b, k);
        }
    }
}

// Screen pixels of an image layer sample the picture through the view's own
// stretch, so that what is drawn matches the coordinate tables.
void TIEViewCompositor::ComposeImageLayer(TIELayer& layer, const QRect& clip) {
    const TIEBitmap& picture = *layer.Bitmap();
    if (picture.Width() < 1 || layer.Width <= 0 || layer.Height <= 0) return;
    const double fx = picture.Width() / layer.Width, fy = picture.Height() / layer.Height;
    const int64_t px = int64_t(std::lround(layer.PosX)) << 16;
    const int64_t py = int64_t(std::lround(layer.PosY)) << 16;
    TIESampleTable xs(size_t(clip.width())), ys(size_t(clip.height()));
    for (int i = 0; i < clip.width(); ++i)
        xs[size_t(i)] =
            int64_t(double(Mapping.SourceX(clip.left() + i - Mapping.OffsetX()) - px) * fx);
    for (int j = 0; j < clip.height(); ++j)
        ys[size_t(j)] =
            int64_t(double(Mapping.SourceY(clip.top() + j - Mapping.OffsetY()) - py) * fy);
    const bool stretched = Mapping.ZoomX() != 100 || Mapping.ZoomY() != 100 || fx != 1 || fy != 1;
    const auto* image = static_cast<const TIEImageLayer*>(&layer);
    const TResampleFilter filter = image->UseResampleFilter ? image->ResampleFilter : ZoomFilter;
    const bool linear = stretched && filter != rfNone && filter != rfNearest;
    IEComposeImage(picture, back_, clip.left(), clip.top(), xs, ys,
                   IELayerOpacity(layer.Opacity, layer.Transparency), linear);
}

QRegion TIEViewCompositor::Cover(TIELayer& layer, const Shown& shown) const {
    const QRect r = layer.ClientRect;
    QRegion cover;
    if (shown.drawn && layer.Kind() == ielkImage) {
        cover = r;
    } else if (shown.drawn) {
        auto& drawn = static_cast<TIEVectorLayer&>(layer);
        if (drawn.CacheFor(r.width(), r.height()))
            cover = drawn.CacheRuns().Coverage(r.topLeft(), kCoverTile);
    }
    // The frame and grips lie in a ring around the layer.
    if (shown.rect != r) {
        const int inset = kGripRadius + 2;
        cover += QRegion(shown.rect) - QRegion(r.adjusted(inset, inset, -inset, -inset));
    }
    return cover;
}

bool TIEViewCompositor::HasFrame(TIELayerList& layers, int index) const {
    const TIELayer& layer = *layers.GetLayer(index);
    return layer.Selected && layer.VisibleBox && Drawn(layers, index);
}

bool TIEViewCompositor::HasGrips(TIELayerList& layers, int index) const {
    // A layer whose box is hidden shows no grips; they still answer the
    // mouse, so that an invisible frame can be dragged.
    const TIELayer& layer = *layers.GetLayer(index);
    return ShowGrips && index == layers.LayersCurrent() && layer.Selectable && layer.VisibleBox;
}

namespace {

// The frame is the ring of pixels just outside the layer, drawn straight
// into the rows: a painter set up over a 4K buffer costs more than the frame.
void DrawFrameRing(TIEBitmap& back, const QRect& r, const QRect& area) {
    const QRect ring = r.adjusted(-1, -1, 1, 1);
    for (QRect line : {QRect(ring.left(), ring.top(), ring.width(), 1),
                       QRect(ring.left(), ring.bottom(), ring.width(), 1),
                       QRect(ring.left(), r.top(), 1, r.height()),
                       QRect(ring.right(), r.top(), 1, r.height())}) {
        line &= area;
        for (int y = line.top(); y <= line.bottom(); ++y)
            std::memset(back.Scanline(y) + 3 * line.left(), 0, size_t(line.width()) * 3);
    }
}

}  // namespace

void TIEViewCompositor::DrawFrames(TIELayerList& layers, const QRect& area) {
    for (int i = 0; i < layers.LayersCount(); ++i) {
        const QRect r = layers.GetLayer(i)->ClientRect;
        if (HasFrame(layers, i)) DrawFrameRing(back_, r, area);
        if (HasGrips(layers, i)) DrawGrips(r, area);
    }
}

void TIEViewCompositor::DrawGrips(const QRect& r, const QRect& area) {
    QImage image = back_.WrapQImage();
    if (image.isNull()) return;
    QPainter painter(&image);
    painter.setClipRect(area);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(IEQColor(0), 1));
    painter.setBrush(IEQColor(0xBAFFFF));
    const QPointF c = QRectF(r).center();
    for (QPointF p : {QPointF(r.left(), r.top()), QPointF(c.x(), r.top()),
                      QPointF(r.right() + 1, r.top()), QPointF(r.right() + 1, c.y()),
                      QPointF(r.right() + 1, r.bottom() + 1), QPointF(c.x(), r.bottom() + 1),
                      QPointF(r.left(), r.bottom() + 1), QPointF(r.left(), c.y())})
        painter.drawEllipse(p, kGripRadius, kGripRadius);
}

}  // namespace qpt
