#include "imaging/encode/IEGifPalette.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "imaging/encode/IEColourCounts.h"

namespace qpt {

namespace {

constexpr int kMaxColours = 256;
// A colour covering at least 1/2048 of the picture (a 45 by 45 pixel patch
// of a 4K screen) is an area, not an edge, and is kept exact; at most this
// many, so that edges and gradients keep enough entries.
constexpr int kMaxExactColours = 64;
constexpr uint32_t kAreaShare = 2048;
constexpr int kCellBits = 6;  // median cut works on 6-bit-per-channel cells

uint32_t Packed(const uint8_t* rgb) {
    return uint32_t(rgb[0]) << 16 | rgb[1] << 8 | rgb[2];
}

TIEPaletteColour Unpacked(uint32_t rgb) {
    return {uint8_t(rgb >> 16), uint8_t(rgb >> 8), uint8_t(rgb)};
}

// Calls f(rgb, run) for each run of equal pixels of row y; `row` is scratch.
template <class F>
void ForEachRun(const TIEPixelView& view, int y, std::vector<uint8_t>& row, const F& f) {
    IERowToRgb(view, y, TIEAlphaOut::None, row.data());
    int x = 0;
    while (x < view.Width) {
        const uint32_t rgb = Packed(&row[size_t(x) * 3]);
        int end = x + 1;
        while (end < view.Width && Packed(&row[size_t(end) * 3]) == rgb)
            ++end;
        f(x, rgb, end - x);
        x = end;
    }
}

TIEColourCounts CountColours(const TIEPixelView& view) {
    TIEColourCounts counts;
    std::vector<uint8_t> row(size_t(view.Width) * 3);
    for (int y = 0; y < view.Height; ++y)
        ForEachRun(view, y, row,
                   [&](int, uint32_t rgb, int run) { counts.Add(rgb, uint32_t(run)); });
    return counts;
}

// ---- median cut over the colours that are not kept exact ----

struct TCell {
    uint64_t Count = 0, R = 0, G = 0, B = 0;  // sums over the cell's pixels
    double Mean(int axis) const {
        return double(axis == 0 ? R : axis == 1 ? G : B) / double(Count);
    }
};

struct TBox {
    size_t Begin = 0, End = 0;
    double Error = 0;  // sum of squared distances to the box's mean
    int Axis = 0;      // the axis of the largest spread
};

void Measure(const std::vector<TCell>& cells, TBox& box) {
    double w = 0, s[3] = {}, q[3] = {};
    for (size_t i = box.Begin; i < box.End; ++i) {
        const double n = double(cells[i].Count);
        w += n;
        for (int a = 0; a < 3; ++a) {
            const double m = cells[i].Mean(a);
            s[a] += m * n, q[a] += m * m * n;
        }
    }
    double spread[3];
    for (int a = 0; a < 3; ++a)
        spread[a] = q[a] - s[a] * s[a] / w;
    box.Axis = int(std::max_element(spread, spread + 3) - spread);
    box.Error = box.End - box.Begin > 1 ? spread[0] + spread[1] + spread[2] : -1;
}

// Splits at the weighted median of the box's widest axis; both halves keep
// at least one cell.
TBox Split(std::vector<TCell>& cells, TBox& box) {
    const auto begin = cells.begin() + ptrdiff_t(box.Begin),
               end = cells.begin() + ptrdiff_t(box.End);
    const int axis = box.Axis;
    std::sort(begin, end,
              [axis](const TCell& a, const TCell& b) { return a.Mean(axis) < b.Mean(axis); });
    uint64_t total = 0;
    for (auto i = begin; i != end; ++i)
        total += i->Count;
    size_t cut = box.Begin + 1;  // the first cell of the upper half
    uint64_t below = cells[box.Begin].Count;
    while (cut + 1 < box.End && below * 2 < total)
        below += cells[cut++].Count;
    TBox upper{cut, box.End};
    box.End = cut;
    Measure(cells, box), Measure(cells, upper);
    return upper;
}

std::vector<TBox> MedianCut(std::vector<TCell>& cells, int colours) {
    std::vector<TBox> boxes{{0, cells.size()}};
    Measure(cells, boxes[0]);
    while (int(boxes.size()) < colours) {
        auto worst = std::max_element(boxes.begin(), boxes.end(), [](const TBox& a, const TBox& b) {
            return a.Error < b.Error;
        });
        if (worst->Error < 0) break;  // every box is a single cell
        boxes.push_back(Split(cells, *worst));
    }
    return boxes;
}

TIEPaletteColour MeanColour(const std::vector<TCell>& cells, const TBox& box) {
    TCell sum;
    for (size_t i = box.Begin; i < box.End; ++i)
        sum.Count += cells[i].Count, sum.R += cells[i].R, sum.G += cells[i].G, sum.B += cells[i].B;
    const auto round = [&](uint64_t v) { return uint8_t((v + sum.Count / 2) / sum.Count); };
    return {round(sum.R), round(sum.G), round(sum.B)};
}

std::vector<TCell> Cells(const std::vector<TIEColourCounts::TEntry>& colours) {
    std::vector<TCell> grid(size_t(1) << (3 * kCellBits));
    constexpr int drop = 8 - kCellBits;
    for (const TIEColourCounts::TEntry& e : colours) {
        const TIEPaletteColour c = Unpacked(e.Rgb);
        TCell& cell = grid[size_t(c.R >> drop) << (2 * kCellBits) | (c.G >> drop) << kCellBits |
                           (c.B >> drop)];
        cell.Count += e.Count, cell.R += uint64_t(c.R) * e.Count;
        cell.G += uint64_t(c.G) * e.Count, cell.B += uint64_t(c.B) * e.Count;
    }
    std::vector<TCell> used;
    std::copy_if(grid.begin(), grid.end(), std::back_inserter(used),
                 [](const TCell& c) { return c.Count > 0; });
    return used;
}

// ---- mapping pixels to the palette ----

TIEIndexedPicture Empty(const TIEPixelView& view) {
    TIEIndexedPicture picture;
    picture.Width = view.Width, picture.Height = view.Height;
    picture.Indices.resize(size_t(view.Width) * size_t(view.Height));
    return picture;
}

// Few colours: each its own entry, each pixel its exact index.
void MapExactly(const TIEPixelView& view, TIEColourCounts& counts, TIEIndexedPicture& out) {
    for (const TIEColourCounts::TEntry& e : counts.ByCount()) {
        counts.SetIndex(e.Rgb, int16_t(out.Palette.size()));
        out.Palette.push_back(Unpacked(e.Rgb));
    }
    std::vector<uint8_t> row(size_t(view.Width) * 3);
    for (int y = 0; y < view.Height; ++y) {
        uint8_t* indices = out.Indices.data() + size_t(y) * size_t(view.Width);
        ForEachRun(view, y, row, [&](int x, uint32_t rgb, int run) {
            std::memset(indices + x, counts.IndexOf(rgb), size_t(run));
        });
    }
}

// Nearest palette entry by squared distance, remembered per 6-bit cell:
// under error diffusion the small rounding does not show.
class TNearest {
public:
    explicit TNearest(const std::vector<TIEPaletteColour>& palette)
        : palette_(palette), cache_(size_t(1) << 18, -1) {}
    uint8_t Of(int r, int g, int b) {
        int16_t& hit = cache_[size_t(r >> 2) << 12 | size_t(g >> 2) << 6 | size_t(b >> 2)];
        if (hit < 0) hit = Search(r, g, b);
        return uint8_t(hit);
    }

private:
    int16_t Search(int r, int g, int b) const {
        int best = 0, bestDistance = INT32_MAX;
        for (size_t i = 0; i < palette_.size(); ++i) {
            const int dr = r - palette_[i].R, dg = g - palette_[i].G, db = b - palette_[i].B;
            const int d = dr * dr + dg * dg + db * db;
            if (d < bestDistance) bestDistance = d, best = int(i);
        }
        return int16_t(best);
    }
    const std::vector<TIEPaletteColour>& palette_;
    std::vector<int16_t> cache_;
};

// Floyd-Steinberg, serpentine, with the error of a row kept per channel in
// two lines (this row, the next) padded by one pixel at each end.
class TDiffusion {
public:
    TDiffusion(const TIEPixelView& view, const TIEColourCounts& counts, TIEIndexedPicture& out)
        : view_(view),
          counts_(counts),
          out_(out),
          nearest_(out.Palette),
          row_(size_t(view.Width) * 3),
          here_(size_t(view.Width + 2) * 3),
          below_(here_.size()) {}

    void Run() {
        for (int y = 0; y < view_.Height; ++y) {
            IERowToRgb(view_, y, TIEAlphaOut::None, row_.data());
            MapRow(y, y % 2 ? -1 : 1);
            here_.swap(below_);
            std::fill(below_.begin(), below_.end(), 0);
        }
    }

private:
    void MapRow(int y, int step) {
        uint8_t* indices = out_.Indices.data() + size_t(y) * size_t(view_.Width);
        const int first = step > 0 ? 0 : view_.Width - 1;
        for (int i = 0, x = first; i < view_.Width; ++i, x += step) {
            const uint8_t* pixel = &row_[size_t(x) * 3];
            const int16_t exact = counts_.IndexOf(Packed(pixel));
            indices[x] = exact >= 0 ? uint8_t(exact) : Diffuse(pixel, x, step);
        }
    }

    uint8_t Diffuse(const uint8_t* pixel, int x, int step) {
        int want[3];
        int* err = &here_[size_t(x + 1) * 3];
        for (int c = 0; c < 3; ++c)
            want[c] = std::clamp(pixel[c] + err[c] / 16, 0, 255);
        const uint8_t index = nearest_.Of(want[0], want[1], want[2]);
        const TIEPaletteColour& got = out_.Palette[index];
        const int e[3] = {want[0] - got.R, want[1] - got.G, want[2] - got.B};
        for (int c = 0; c < 3; ++c) {
            here_[size_t(x + 1 + step) * 3 + c] += e[c] * 7;
            below_[size_t(x + 1 - step) * 3 + c] += e[c] * 3;
            below_[size_t(x + 1) * 3 + c] += e[c] * 5;
            below_[size_t(x + 1 + step) * 3 + c] += e[c];
        }
        return index;
    }

    const TIEPixelView& view_;
    const TIEColourCounts& counts_;
    TIEIndexedPicture& out_;
    TNearest nearest_;
    std::vector<uint8_t> row_;
    std::vector<int> here_, below_;  // error in sixteenths
};

// Many colours: area colours exact, the rest by median cut.
void MapReduced(const TIEPixelView& view, TIEColourCounts& counts, TIEIndexedPicture& out) {
    const std::vector<TIEColourCounts::TEntry> colours = counts.ByCount();
    const uint64_t area = uint64_t(view.Width) * uint64_t(view.Height) / kAreaShare;
    size_t exact = 0;
    while (exact < kMaxExactColours && colours[exact].Count >= std::max<uint64_t>(area, 1)) {
        counts.SetIndex(colours[exact].Rgb, int16_t(exact));
        out.Palette.push_back(Unpacked(colours[exact++].Rgb));
    }
    std::vector<TCell> cells = Cells({colours.begin() + ptrdiff_t(exact), colours.end()});
    for (const TBox& box : MedianCut(cells, kMaxColours - int(exact)))
        out.Palette.push_back(MeanColour(cells, box));
    TDiffusion(view, counts, out).Run();
}

}  // namespace

TIEIndexedPicture IEReduceTo256Colours(const TIEPixelView& view) {
    if (!view.Valid()) return {};
    try {
        TIEColourCounts counts = CountColours(view);
        TIEIndexedPicture picture = Empty(view);
        if (counts.Size() <= kMaxColours)
            MapExactly(view, counts, picture);
        else
            MapReduced(view, counts, picture);
        return picture;
    } catch (const std::bad_alloc&) {
        return {};
    }
}

}  // namespace qpt
