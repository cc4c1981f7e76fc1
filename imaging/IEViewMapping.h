#pragma once

#include <cstdint>
#include <vector>

namespace qpt {

// Zoom, scroll and the screen/bitmap coordinate tables of a view. The
// tables are the stretch the paint uses, so a click and the pixel drawn
// under it agree at any zoom; outside the visible part a float path serves.
class TIEViewMapping {
public:
    TIEViewMapping();

    double ZoomX() const { return zoomX_; }
    double ZoomY() const { return zoomY_; }
    double ZoomD100X() const { return zoomD100X_; }
    double ZoomD100Y() const { return zoomD100Y_; }
    double Zoom100DX() const { return zoom100DX_; }
    double Zoom100DY() const { return zoom100DY_; }
    // Percent; a value of 0 or below, or the zoom in force, changes nothing.
    // Returns whether it changed.
    bool SetZoom(double percent);

    // Picture and client sizes; runs the layout step and rebuilds the tables.
    void SetLayout(int bitmapWidth, int bitmapHeight, int clientWidth, int clientHeight,
                   bool center = true);
    // Scrolls in zoomed pixels, kept within the scroll limits.
    void SetViewXY(int x, int y);

    int ViewX() const { return viewX_; }
    int ViewY() const { return viewY_; }
    int ViewBmpX() const { return viewBmpX_; }
    int ViewBmpY() const { return viewBmpY_; }
    int OffsetX() const { return offsetX_; }
    int OffsetY() const { return offsetY_; }
    int ExtentX() const { return extentX_; }
    int ExtentY() const { return extentY_; }
    int BitmapWidth() const { return bmpW_; }
    int BitmapHeight() const { return bmpH_; }
    int ClientWidth() const { return clientW_; }
    int ClientHeight() const { return clientH_; }
    int MaxViewX() const;
    int MaxViewY() const;

    int XScr2Bmp(int x) const;
    int YScr2Bmp(int y) const;
    int XBmp2Scr(int x) const;
    int YBmp2Scr(int y) const;

    const std::vector<int32_t>& ScrToBmpX() const { return scrToBmpX_; }
    const std::vector<int32_t>& ScrToBmpY() const { return scrToBmpY_; }
    const std::vector<int32_t>& BmpToScrX() const { return bmpToScrX_; }
    const std::vector<int32_t>& BmpToScrY() const { return bmpToScrY_; }
    // Source position of visible screen column i (0 at OffsetX), 16.16 fixed
    // point; the table entry is its integer part.
    int64_t SourceX(int i) const { return SourceFixed(i + viewX_, zoom100DX_); }
    int64_t SourceY(int i) const { return SourceFixed(i + viewY_, zoom100DY_); }

private:
    static int64_t SourceFixed(int zoomedPixel, double zoom100D);
    void Layout();
    void BuildTables();

    double zoomX_ = 100, zoomY_ = 100;
    double zoomD100X_ = 1, zoomD100Y_ = 1;
    double zoom100DX_ = 1, zoom100DY_ = 1;
    int bmpW_ = 0, bmpH_ = 0;
    int clientW_ = 50, clientH_ = 50;
    bool center_ = true;
    int viewX_ = 0, viewY_ = 0;
    int viewBmpX_ = 0, viewBmpY_ = 0;
    int offsetX_ = 0, offsetY_ = 0;
    int extentX_ = 0, extentY_ = 0;
    std::vector<int32_t> scrToBmpX_, scrToBmpY_, bmpToScrX_, bmpToScrY_;
};

}  // namespace qpt
