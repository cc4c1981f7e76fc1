#include "imaging/IEViewMapping.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace qpt {

namespace {

// Screen to bitmap along one axis, then its inverse: the first screen pixel
// that shows each bitmap pixel (at zooms below 100 a skipped bitmap pixel
// maps to the screen pixel that shows the next one).
void BuildAxis(int extent, int viewBmp, const std::function<int64_t(int)>& source,
               std::vector<int32_t>& scrToBmp, std::vector<int32_t>& bmpToScr) {
    scrToBmp.resize(size_t(std::max(extent, 0)));
    for (int i = 0; i < extent; ++i)
        scrToBmp[size_t(i)] = int32_t(source(i) >> 16);
    bmpToScr.clear();
    if (extent <= 0) return;
    bmpToScr.resize(size_t(scrToBmp.back() - viewBmp + 1));
    int j = 0;
    for (int i = 0; i < extent; ++i)
        while (j <= scrToBmp[size_t(i)] - viewBmp)
            bmpToScr[size_t(j++)] = i;
}

}  // namespace

TIEViewMapping::TIEViewMapping() {
    BuildTables();
}

int64_t TIEViewMapping::SourceFixed(int zoomedPixel, double zoom100D) {
    return int64_t(std::floor(double(zoomedPixel) * zoom100D * 65536.0 + 1e-6));
}

bool TIEViewMapping::SetZoom(double percent) {
    if (!(percent > 0) || (percent == zoomX_ && percent == zoomY_)) return false;
    zoomX_ = zoomY_ = percent;
    zoomD100X_ = zoomD100Y_ = percent / 100;
    zoom100DX_ = zoom100DY_ = 100 / percent;
    Layout();
    return true;
}

void TIEViewMapping::SetLayout(int bitmapWidth, int bitmapHeight, int clientWidth, int clientHeight,
                               bool center) {
    bmpW_ = std::max(0, bitmapWidth);
    bmpH_ = std::max(0, bitmapHeight);
    clientW_ = std::max(0, clientWidth);
    clientH_ = std::max(0, clientHeight);
    center_ = center;
    Layout();
}

int TIEViewMapping::MaxViewX() const {
    return std::max(0, int(std::lround(bmpW_ * zoomD100X_)) - clientW_);
}

int TIEViewMapping::MaxViewY() const {
    return std::max(0, int(std::lround(bmpH_ * zoomD100Y_)) - clientH_);
}

void TIEViewMapping::Layout() {
    const int zoomedW = int(std::lround(bmpW_ * zoomD100X_));
    const int zoomedH = int(std::lround(bmpH_ * zoomD100Y_));
    extentX_ = std::min(zoomedW, clientW_);
    extentY_ = std::min(zoomedH, clientH_);
    offsetX_ = center_ && zoomedW < clientW_ ? (clientW_ - extentX_) / 2 : 0;
    offsetY_ = center_ && zoomedH < clientH_ ? (clientH_ - extentY_) / 2 : 0;
    SetViewXY(viewX_, viewY_);
}

void TIEViewMapping::SetViewXY(int x, int y) {
    viewX_ = std::clamp(x, 0, MaxViewX());
    viewY_ = std::clamp(y, 0, MaxViewY());
    viewBmpX_ = int(SourceX(0) >> 16);
    viewBmpY_ = int(SourceY(0) >> 16);
    BuildTables();
}

void TIEViewMapping::BuildTables() {
    BuildAxis(
        extentX_, viewBmpX_, [this](int i) { return SourceX(i); }, scrToBmpX_, bmpToScrX_);
    BuildAxis(
        extentY_, viewBmpY_, [this](int i) { return SourceY(i); }, scrToBmpY_, bmpToScrY_);
}

int TIEViewMapping::XScr2Bmp(int x) const {
    const int i = x - offsetX_;
    if (i >= 0 && i < int(scrToBmpX_.size())) return scrToBmpX_[size_t(i)];
    return int(std::trunc(i * zoom100DX_ + viewBmpX_));
}

int TIEViewMapping::YScr2Bmp(int y) const {
    const int i = y - offsetY_;
    if (i >= 0 && i < int(scrToBmpY_.size())) return scrToBmpY_[size_t(i)];
    return int(std::trunc(i * zoom100DY_ + viewBmpY_));
}

int TIEViewMapping::XBmp2Scr(int x) const {
    const int i = x - viewBmpX_;
    if (i >= 0 && i < int(bmpToScrX_.size())) return bmpToScrX_[size_t(i)] + offsetX_;
    return int(std::lround(double(x + std::lround(-viewX_ * zoom100DX_)) * zoomD100X_ + offsetX_));
}

int TIEViewMapping::YBmp2Scr(int y) const {
    const int i = y - viewBmpY_;
    if (i >= 0 && i < int(bmpToScrY_.size())) return bmpToScrY_[size_t(i)] + offsetY_;
    return int(std::lround(double(y + std::lround(-viewY_ * zoom100DY_)) * zoomD100Y_ + offsetY_));
}

}  // namespace qpt
