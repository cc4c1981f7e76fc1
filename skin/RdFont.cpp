#include "skin/RdFont.h"

#include <QFontMetrics>
#include <algorithm>
#include <cmath>

#include "skin/ColorTable.h"
#include "support/color/ColorNames.h"

namespace qpt {

namespace {

// System colour 8: the text colour of windows.

// The pixel size whose cell (ascent plus descent) comes closest to `cell`.
int PixelSizeForCell(QFont font, int cell) {
    font.setPixelSize(cell);
    const int measured = QFontMetrics(font).height();
    if (measured <= 0) return cell;
    return std::max(1, int(std::lround(double(cell) * cell / measured)));
}

}  // namespace

TRdFont::TRdFont(QObject* parent)
    : QObject(parent),
      color_(clWindowText),
      allSkin_(new TRdSkinClass(this, QStringLiteral("font"))) {
    allSkin_->SetBatchFont(this);
}

template <typename T>
void TRdFont::Change(T& field, const T& value) {
    if (field == value) return;
    field = value;
    if (!assigning_) parentFont_ = false;
    Notify();
}

void TRdFont::Notify() {
    if (updates_ > 0) {
        pending_ = true;
        return;
    }
    emit Changed();
}

void TRdFont::SetParentFont(bool value) {
    if (parentFont_ == value) return;
    parentFont_ = value;
    Notify();
}

void TRdFont::SetCharset(int value) {
    Change(charset_, value);
}
void TRdFont::SetColor(quint32 value) {
    Change(color_, value);
}
void TRdFont::SetHeight(int value) {
    Change(height_, value);
}
void TRdFont::SetName(const QString& value) {
    Change(name_, value);
}
void TRdFont::SetStyle(TFontStyles value) {
    Change(style_, value);
}
void TRdFont::SetAntialiased(bool value) {
    Change(antialiased_, value);
}
void TRdFont::SetAlpha(int value) {
    Change(alpha_, std::clamp(value, 0, 255));
}

int TRdFont::Size() const {
    return -int(std::lround(double(height_) * 72 / kPixelsPerInch));
}

void TRdFont::SetSize(int points) {
    SetHeight(-int(std::lround(double(points) * kPixelsPerInch / 72)));
}

int TRdFont::FontHeight() const {
    return QFontMetrics(ToQFont()).height();
}
int TRdFont::FontBaseLine() const {
    return QFontMetrics(ToQFont()).ascent();
}
int TRdFont::FontTopLine() const {
    const QFontMetrics metrics(ToQFont());
    return metrics.ascent() - metrics.capHeight();
}

void TRdFont::BeginUpdate() {
    ++updates_;
}

void TRdFont::EndUpdate() {
    if (updates_ == 0 || --updates_ > 0 || !pending_) return;
    pending_ = false;
    emit Changed();
}

void TRdFont::Assign(const TRdFont& source) {
    if (&source == this) return;
    BeginUpdate();
    assigning_ = true;
    SetName(source.name_);
    SetHeight(source.height_);
    SetStyle(source.style_);
    SetColor(source.color_);
    SetCharset(source.charset_);
    SetAntialiased(source.antialiased_);
    SetAlpha(source.alpha_);
    assigning_ = false;
    EndUpdate();
}

QFont TRdFont::ToQFont() const {
    QFont font(name_);
    if (height_ < 0)
        font.setPixelSize(-height_);
    else if (height_ > 0)
        font.setPixelSize(PixelSizeForCell(font, height_));
    font.setBold(style_.testFlag(fsBold));
    font.setItalic(style_.testFlag(fsItalic));
    font.setUnderline(style_.testFlag(fsUnderline));
    font.setStrikeOut(style_.testFlag(fsStrikeOut));
    font.setStyleStrategy(antialiased_ ? QFont::PreferAntialias : QFont::NoAntialias);
    return font;
}

QColor TRdFont::ToQColor() const {
    const quint32 bgr = ColorToRGB(color_);
    return QColor(int(bgr & 0xFF), int(bgr >> 8 & 0xFF), int(bgr >> 16 & 0xFF), alpha_);
}

}  // namespace qpt
