#include "tools/SkinContactSheet/ContactSheet.h"

#include <QDir>
#include <QFile>
#include <QFontMetrics>
#include <QPainter>
#include <QResource>
#include <QTextStream>
#include <algorithm>

namespace qpt {
namespace {

const QString kRoot = "/contact-sheet";
constexpr int kGap = 16;
constexpr int kMinSheetWidth = 1100;
const QColor kPaper(0x1B, 0x1D, 0x22);
const QColor kCheckerDark(0x24, 0x27, 0x2E);
const QColor kCheckerLight(0x2C, 0x30, 0x38);
const QColor kLabel(0xB9, 0xBE, 0xC8);
const QColor kGuide(0xFF, 0x4D, 0xA6, 0x90);

QString resourcePath(const QString& name) {
    return ":" + kRoot + "/" + name;
}

// A checkerboard under each picture, so that transparency reads as such.
void fillChecker(QPainter& painter, const QRect& area) {
    painter.fillRect(area, kCheckerDark);
    constexpr int kCell = 6;
    for (int y = area.top(); y <= area.bottom(); y += kCell)
        for (int x = area.left() + ((y - area.top()) / kCell % 2) * kCell; x <= area.right();
             x += 2 * kCell)
            painter.fillRect(QRect(x, y, kCell, kCell).intersected(area), kCheckerLight);
}

// Everything of an ini file as section -> key -> value, in file order.
using IniSections = QList<std::pair<QString, QList<std::pair<QString, QString>>>>;

IniSections readIni(const QString& path) {
    IniSections sections;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return sections;
    QTextStream in(&file);
    while (!in.atEnd()) {
        const QString line = in.readLine().trimmed();
        if (line.startsWith('[') && line.endsWith(']')) {
            sections.append({line.mid(1, line.size() - 2), {}});
        } else if (!sections.isEmpty() && !line.startsWith(';') && line.contains('=')) {
            const qsizetype eq = line.indexOf('=');
            sections.last().second.append({line.left(eq).trimmed(), line.mid(eq + 1).trimmed()});
        }
    }
    return sections;
}

QString valueOf(const QList<std::pair<QString, QString>>& keys, const QString& name) {
    for (const auto& [key, value] : keys)
        if (key.compare(name, Qt::CaseInsensitive) == 0) return value;
    return {};
}

struct Cell {
    QString label;
    QSize picture;
};

// Lays cells out left to right, wrapping at the sheet width; returns the
// top-left corner of each cell and advances `top` past the last row.
QList<QPoint> flow(const QList<Cell>& cells, const QFontMetrics& metrics, int width, int& top) {
    QList<QPoint> places;
    int x = kGap;
    int rowHeight = 0;
    for (const Cell& cell : cells) {
        const int cellWidth = std::max(cell.picture.width(), metrics.horizontalAdvance(cell.label));
        const int cellHeight = cell.picture.height() + metrics.height() + 4;
        if (x > kGap && x + cellWidth > width - kGap) {
            top += rowHeight + kGap;
            x = kGap;
            rowHeight = 0;
        }
        places.append(QPoint(x, top));
        x += cellWidth + kGap;
        rowHeight = std::max(rowHeight, cellHeight);
    }
    top += rowHeight + kGap;
    return places;
}

// The sizes a nine-slice picture is shown at: its own, then wider and taller,
// never wider than the sheet.
QList<QSize> sliceSizes(QSize picture, int maxWidth) {
    QList<QSize> sizes;
    const QSize steps[] = {{1, 2}, {3, 2}, {6, 4}, {12, 3}};  // width factor, height in halves
    for (const QSize& step : steps)
        sizes.append(QSize(std::min(picture.width() * step.width(), maxWidth),
                           picture.height() * step.height() / 2));
    return sizes;
}

// Small pictures are shown again blown up with hard pixel edges, so that
// blurred strokes and stray pixels can be seen without a magnifier.
constexpr int kMagnifiedSide = 72;
constexpr int kMaxMagnifiedSource = 40;

int magnification(QSize picture) {
    const int side = std::max(picture.width(), picture.height());
    if (side == 0 || side > kMaxMagnifiedSource) return 0;
    return std::max(2, kMagnifiedSide / side);
}

}  // namespace

std::optional<TSheetSlice> ParseSliceOption(const QString& text) {
    const QStringList parts = text.split(',');
    if (parts.size() != 5) return std::nullopt;
    int numbers[5];
    for (int i = 0; i < 5; ++i) {
        bool ok = false;
        numbers[i] = parts[i].trimmed().toInt(&ok);
        if (!ok || numbers[i] < 0) return std::nullopt;
    }
    TSheetSlice slice;
    slice.margins = QMargins(numbers[0], numbers[1], numbers[2], numbers[3]);
    slice.frameOnly = numbers[4] == 3;
    return slice;
}

void DrawNineSlice(QPainter& painter, const QRect& target, const QImage& picture, QMargins margins,
                   bool frameOnly) {
    if (target.width() == picture.width()) margins.setLeft(0), margins.setRight(0);
    if (target.height() == picture.height()) margins.setTop(0), margins.setBottom(0);
    const int sourceX[4] = {0, margins.left(), picture.width() - margins.right(), picture.width()};
    const int sourceY[4] = {0, margins.top(), picture.height() - margins.bottom(),
                            picture.height()};
    const int targetX[4] = {target.left(), target.left() + margins.left(),
                            target.right() + 1 - margins.right(), target.right() + 1};
    const int targetY[4] = {target.top(), target.top() + margins.top(),
                            target.bottom() + 1 - margins.bottom(), target.bottom() + 1};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            if (frameOnly && row == 1 && column == 1) continue;
            const QRect from(QPoint(sourceX[column], sourceY[row]),
                             QPoint(sourceX[column + 1] - 1, sourceY[row + 1] - 1));
            const QRect to(QPoint(targetX[column], targetY[row]),
                           QPoint(targetX[column + 1] - 1, targetY[row + 1] - 1));
            if (from.isValid() && to.isValid()) painter.drawImage(to, picture, from);
        }
    }
}

bool TContactSheet::Open(const QString& rccPath) {
    if (!QResource::registerResource(rccPath, kRoot)) return false;
    rccPath_ = rccPath;
    return true;
}

TContactSheet::~TContactSheet() {
    if (!rccPath_.isEmpty()) QResource::unregisterResource(rccPath_, kRoot);
}

QList<TSheetPicture> TContactSheet::Pictures() const {
    QList<TSheetPicture> pictures;
    const QDir images(resourcePath("images"));
    for (const QString& file : images.entryList(QDir::Files, QDir::Name | QDir::IgnoreCase))
        pictures.append({file, QImage(images.filePath(file))});
    return pictures;
}

QList<TSheetSlice> TContactSheet::Slices() const {
    QList<TSheetSlice> slices;
    for (const auto& [section, keys] : readIni(resourcePath("main.ini"))) {
        if (valueOf(keys, "class").compare("image", Qt::CaseInsensitive) != 0) continue;
        QString option = valueOf(keys, "imgopt!");
        if (option.isEmpty()) option = valueOf(keys, "imgopt");
        auto slice = ParseSliceOption(option);
        if (!slice) continue;
        slice->section = section;
        slice->pictureName = valueOf(keys, "imgname");
        slices.append(*slice);
    }
    return slices;
}

namespace {

// Every cell of the sheet and where it goes. Everything is laid out before
// anything is painted: the sheet's height is known only afterwards.
struct TSheetLayout {
    int width = kMinSheetWidth;
    int height = 0;
    QList<Cell> pictureCells, magnifiedCells;
    QList<QImage> magnifiedImages;
    QList<QList<Cell>> sliceRows;
    QList<QImage> sliceImages;
    QList<QPoint> picturePlaces, magnifiedPlaces;
    QList<int> sliceTops;
    QList<QList<QPoint>> slicePlaces;
};

void GatherPictureCells(const QList<TSheetPicture>& pictures, TSheetLayout& layout) {
    for (const TSheetPicture& picture : pictures) {
        layout.pictureCells.append({picture.name, picture.image.size()});
        layout.width = std::max(layout.width, picture.image.width() + 2 * kGap);
        if (const int factor = magnification(picture.image.size())) {
            layout.magnifiedImages.append(picture.image.scaled(picture.image.size() * factor));
            layout.magnifiedCells.append(
                {QString("%1 x%2").arg(picture.name.section('.', 0, 0)).arg(factor),
                 layout.magnifiedImages.last().size()});
        }
    }
}

// After the pictures: the slices take the sheet's final width.
void GatherSliceCells(const QList<TSheetSlice>& slices, TSheetLayout& layout) {
    for (const TSheetSlice& slice : slices) {
        const QImage image(resourcePath(slice.pictureName));
        QList<Cell> row;
        for (QSize size : sliceSizes(image.size(), layout.width - 2 * kGap))
            row.append({QString("%1x%2").arg(size.width()).arg(size.height()), size});
        layout.sliceRows.append(row);
        layout.sliceImages.append(image);
    }
}

void PlaceCells(const QFontMetrics& metrics, int headerHeight, TSheetLayout& layout) {
    int top = headerHeight;
    layout.picturePlaces = flow(layout.pictureCells, metrics, layout.width, top);
    layout.magnifiedPlaces = flow(layout.magnifiedCells, metrics, layout.width, top);
    for (const QList<Cell>& row : layout.sliceRows) {
        top += metrics.height() + 4;
        layout.sliceTops.append(top);
        layout.slicePlaces.append(flow(row, metrics, layout.width, top));
    }
    layout.height = top;
}

// A cell: the checker ground, what paint() draws on it, and its label below.
template <class Paint>
void DrawCell(QPainter& painter, const QFontMetrics& metrics, QPoint at, const Cell& cell,
              Paint&& paint) {
    const QRect area(at, cell.picture);
    fillChecker(painter, area);
    paint(area);
    painter.setPen(kLabel);
    painter.drawText(at.x(), at.y() + cell.picture.height() + 2 + metrics.ascent(), cell.label);
}

// The picture stretched, with lines where its corners end and stretching starts.
void DrawSliceSample(QPainter& painter, const QRect& area, const QImage& image,
                     const TSheetSlice& slice) {
    DrawNineSlice(painter, area, image, slice.margins, slice.frameOnly);
    painter.setPen(kGuide);
    const QRect inner = area.marginsRemoved(slice.margins);
    painter.drawLine(inner.left(), area.top(), inner.left(), area.bottom());
    painter.drawLine(inner.right() + 1, area.top(), inner.right() + 1, area.bottom());
    painter.drawLine(area.left(), inner.top(), area.right(), inner.top());
    painter.drawLine(area.left(), inner.bottom() + 1, area.right(), inner.bottom() + 1);
}

void DrawSlices(QPainter& painter, const QFontMetrics& metrics, const QList<TSheetSlice>& slices,
                const TSheetLayout& layout) {
    for (qsizetype s = 0; s < slices.size(); ++s) {
        const TSheetSlice& slice = slices[s];
        painter.setPen(kLabel);
        painter.drawText(kGap, layout.sliceTops[s] - 4,
                         QString("[%1]  %2  margins %3,%4,%5,%6%7")
                             .arg(slice.section, slice.pictureName)
                             .arg(slice.margins.left())
                             .arg(slice.margins.top())
                             .arg(slice.margins.right())
                             .arg(slice.margins.bottom())
                             .arg(slice.frameOnly ? "  frame" : ""));
        for (qsizetype i = 0; i < layout.sliceRows[s].size(); ++i)
            DrawCell(painter, metrics, layout.slicePlaces[s][i], layout.sliceRows[s][i],
                     [&](const QRect& area) {
                         DrawSliceSample(painter, area, layout.sliceImages[s], slice);
                     });
    }
}

}  // namespace

QImage TContactSheet::Render(const QString& title) const {
    const QList<TSheetPicture> pictures = Pictures();
    const QList<TSheetSlice> slices = Slices();
    QFont font("DejaVu Sans");
    font.setPixelSize(11);
    const QFontMetrics metrics(font);
    TSheetLayout layout;
    GatherPictureCells(pictures, layout);
    GatherSliceCells(slices, layout);
    PlaceCells(metrics, metrics.height() + 2 * kGap, layout);

    QImage sheet(layout.width, layout.height, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(kPaper);
    QPainter painter(&sheet);
    painter.setFont(font);
    painter.setPen(kLabel);
    painter.drawText(kGap, kGap + metrics.ascent(),
                     QString("%1: %2 pictures, %3 nine-slice descriptions (margins in pink)")
                         .arg(title)
                         .arg(pictures.size())
                         .arg(slices.size()));
    for (qsizetype i = 0; i < pictures.size(); ++i)
        DrawCell(painter, metrics, layout.picturePlaces[i], layout.pictureCells[i],
                 [&](const QRect& area) { painter.drawImage(area.topLeft(), pictures[i].image); });
    for (qsizetype i = 0; i < layout.magnifiedImages.size(); ++i)
        DrawCell(painter, metrics, layout.magnifiedPlaces[i], layout.magnifiedCells[i],
                 [&](const QRect& area) {
                     painter.drawImage(area.topLeft(), layout.magnifiedImages[i]);
                 });
    DrawSlices(painter, metrics, slices, layout);
    return sheet;
}

}  // namespace qpt
