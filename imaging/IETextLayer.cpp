#include "imaging/IETextLayer.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QStringList>
#include <cmath>

#include "imaging/IECanvas.h"
#include "imaging/IELayerStreamFormat.h"

namespace qpt {

namespace {

// The text box keeps this much room around the text, in layer pixels.
constexpr double kSpacingX = 3.0, kSpacingY = 2.0;

int AlignmentFlags(uint8_t alignment, uint8_t layout) {
    int flags = alignment == 1   ? Qt::AlignRight
                : alignment == 2 ? Qt::AlignHCenter
                : alignment == 3 ? Qt::AlignJustify
                                 : Qt::AlignLeft;
    flags |= layout == 1 ? Qt::AlignVCenter : layout == 2 ? Qt::AlignBottom : Qt::AlignTop;
    return flags;
}

}  // namespace

QFont IETextQFont(const TIEFont& f, double scale) {
    QFont font(f.Name);
    // Points at 96 dpi, since one picture pixel is one screen pixel.
    font.setPixelSize(std::max(1, int(std::lround(f.Size * 96.0 / 72.0 * scale))));
    font.setBold(f.Bold);
    font.setItalic(f.Italic);
    font.setUnderline(f.Underline);
    return font;
}

TIETextLayer::TIETextLayer(TIELayerList* owner) : TIEVectorLayer(ielkText, owner) {
    BorderColor = clNone;
    FillColor = clNone;
}

void TIETextLayer::SetAutoSize(bool on) {
    autoSize_ = on;
    MeasureIfAutoSized();
}

void TIETextLayer::SetText(const QString& text) {
    Text = text;
    MeasureIfAutoSized();
    Changed(true);
}

void TIETextLayer::SetFont(const TIEFont& font) {
    Font = font;
    MeasureIfAutoSized();
    Changed(true);
}

// Word wrap off: the longest line gives the width, the line count the height.
void TIETextLayer::MeasureIfAutoSized() {
    if (!autoSize_) return;
    const QFontMetricsF metrics(IETextQFont(Font, 1.0));
    double widest = 0;
    const QStringList lines = Text.split('\n');
    for (const QString& line : lines)
        widest = std::max(widest, metrics.horizontalAdvance(line));
    Width = std::ceil(widest + 2 * (kSpacingX + HorzMargin));
    Height = std::ceil(metrics.lineSpacing() * double(lines.size()) + 2 * (kSpacingY + VertMargin));
}

int TIETextLayer::MinimumClickHeight() const {
    // There is no font database without a GUI application.
    const double line = qGuiApp ? QFontMetricsF(IETextQFont(Font, 1.0)).height() : 0;
    return int(line) + 5;
}

void TIETextLayer::PaintToBitmap(TIEBitmap& dest, int width, int height) {
    if (!IEAllocateCanvas(dest, width, height)) return;
    TIECanvas canvas(dest);
    if (!canvas.IsValid() || Width <= 0 || Height <= 0) return;
    const double scale = width / Width;
    if (FillColor != clNone) {
        canvas.Brush = TIEBrush{FillColor, iebsSolid};
        canvas.FillRectangle(QRectF(0, 0, width, height));
    }
    if (BorderColor != clNone && BorderWidth > 0) {
        const double pen = std::max(1.0, std::round(BorderWidth * scale));
        canvas.Pen = TIEPen{BorderColor, pen};
        canvas.DrawRectangle(QRectF(pen / 2, pen / 2, width - pen, height - pen));
    }
    const QRectF box(QPointF(0, 0), QSizeF(width, height));
    const QRectF inner =
        box.adjusted((kSpacingX + HorzMargin) * scale, (kSpacingY + VertMargin) * scale,
                     -(kSpacingX + HorzMargin) * scale, -(kSpacingY + VertMargin) * scale);
    int flags = AlignmentFlags(TextAlignment, TextLayout);
    if (WordWrap && !autoSize_) flags |= Qt::TextWordWrap;
    canvas.Pen = TIEPen{Font.Color, 1};
    canvas.TextAntiAlias = AntiAlias;
    canvas.DrawText(inner, Text, IETextQFont(Font, scale), flags);
}

void TIETextLayer::SaveToStream(QDataStream& out, bool withPixels) const {
    TIELayer::SaveToStream(out, withPixels);
    out << Font.Name << qint32(Font.Size) << quint32(Font.Color) << Font.Bold << Font.Italic
        << Font.Underline << Text << RichText << EnableFormatting << autoSize_ << WordWrap
        << qint32(HorzMargin) << qint32(VertMargin) << quint8(TextAlignment) << quint8(TextLayout);
}

void TIETextLayer::LoadFromStream(QDataStream& in) {
    TIELayer::LoadFromStream(in);
    Font.Name = IEReadString(in);
    Font.Size = IEReadInt(in, 0, 10000);
    Font.Color = IEReadColor(in);
    Font.Bold = IEReadBool(in);
    Font.Italic = IEReadBool(in);
    Font.Underline = IEReadBool(in);
    Text = IEReadString(in);
    in >> RichText;
    IECheckStream(in);
    EnableFormatting = IEReadBool(in);
    autoSize_ = IEReadBool(in);
    WordWrap = IEReadBool(in);
    HorzMargin = IEReadInt(in, -100000, 100000);
    VertMargin = IEReadInt(in, -100000, 100000);
    TextAlignment = IEReadByte(in, 3);
    TextLayout = IEReadByte(in, 2);
}

}  // namespace qpt
