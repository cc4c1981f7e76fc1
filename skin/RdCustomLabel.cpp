#include "skin/RdCustomLabel.h"

#include <QHelpEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QShortcutEvent>
#include <QToolTip>

#include "skin/RdGraphic.h"
#include "skin/SkinDraw.h"
#include "skin/SkinQColor.h"

namespace qpt {

TRdCustomLabel::TRdCustomLabel(QWidget* parent)
    : TRdGraphicControl(parent),
      bkgNormal_(new TRdPictureProperty(this)),
      bkgOption_(new TDesignRectProperty(this)),
      textBorder_(new TDesignRectProperty(this)) {
    connect(bkgNormal_, &TRdPictureProperty::Changed, this, qOverload<>(&QWidget::update));
    connect(bkgOption_, &TDesignRectProperty::Changed, this, qOverload<>(&QWidget::update));
    connect(textBorder_, &TDesignRectProperty::Changed, this, [this] {
        AdjustBounds();
        update();
    });
    bkgOption_->Rect().OnDefaultRequested = [this] {
        TRdGraphic* graphic = bkgNormal_->Graphic();
        const int w = graphic ? graphic->Width() / 3 : 0, h = graphic ? graphic->Height() / 3 : 0;
        bkgOption_->Rect().Set(w, h, w, h, bkgOption_->Rect().StretchMode());
    };
}

TRdCustomLabel::~TRdCustomLabel() {
    destroying_ = true;
}

void TRdCustomLabel::SetCaption(const QString& value) {
    if (caption_ == value) return;
    caption_ = value;
    CaptionChanged();
    UpdateMnemonic();
    AdjustBounds();
    update();
}

void TRdCustomLabel::SetShowAccelChar(bool value) {
    if (showAccelChar_ == value) return;
    showAccelChar_ = value;
    UpdateMnemonic();
    AdjustBounds();
    update();
}

void TRdCustomLabel::SetWrapChar(const QString& value) {
    ChangeAndFit(wrapChar_, value.isEmpty() ? QChar() : value[0]);
}

void TRdCustomLabel::EndLoad() {
    if (loading_ > 0 && --loading_ == 0) AdjustBounds();
}

QRect TRdCustomLabel::TextRect() const {
    const TDesignRect& border = textBorder_->Rect();
    return rect().adjusted(border.Left(), border.Top(), -border.Right(), -border.Bottom());
}

TLabelTextOptions TRdCustomLabel::TextOptions() const {
    return {wordWrap_, static_cast<TEllipsisPosition>(ellipsis_), showAccelChar_, wrapChar_};
}

TLabelText TRdCustomLabel::ShownText() const {
    const QRect area = TextRect();
    return LayoutLabelText(caption_, Font()->ToQFont(), qMax(area.width(), 1),
                           qMax(area.height(), 1), TextOptions());
}

QSize TRdCustomLabel::MeasureText(int width, int height) const {
    return LayoutLabelText(caption_, Font()->ToQFont(), width, height, TextOptions()).size;
}

bool TRdCustomLabel::TextCut() const {
    return ShownText().cut;
}

void TRdCustomLabel::AdjustBounds() {
    const bool wanted = autoSize_ || wordWrap_ || ellipsis_ != epNone;
    if (!wanted || loading_ > 0 || destroying_ || fitting_) return;
    const QScopedValueRollback<bool> guard(fitting_, true);
    const QRect before = geometry();
    FitOnce();
    // An ellipsis depends on the width the first pass may just have changed.
    if (ellipsis_ != epNone && geometry() != before) FitOnce();
}

void TRdCustomLabel::FitOnce() {
    const TDesignRect& border = textBorder_->Rect();
    const int borderW = border.Left() + border.Right(), borderH = border.Top() + border.Bottom();
    const bool cutsLines = wordWrap_ && (ellipsis_ == epEndEllipsis || ellipsis_ == epWordEllipsis);
    const bool growsWidth = autoSize_ && !wordWrap_;
    // Without AutoSize a label that cuts its lines keeps its height; with it
    // the largest height allowed is what the lines are cut to.
    const bool heightFollows = autoSize_ || !cutsLines;
    const bool boundedW = maximumWidth() < QWIDGETSIZE_MAX;
    const int limitW = growsWidth ? (boundedW ? maximumWidth() - borderW : 0) : width() - borderW;
    const int limitH = !cutsLines ? 0
                       : autoSize_
                           ? (maximumHeight() < QWIDGETSIZE_MAX ? maximumHeight() - borderH : 0)
                           : height() - borderH;
    const QSize text = MeasureText(growsWidth ? qMax(limitW, 0) : qMax(limitW, 1),
                                   cutsLines ? qMax(limitH, 0) : 0);

    const int w = growsWidth ? text.width() + borderW : width();
    const int h = heightFollows ? text.height() + borderH : height();
    const QSize size = QSize(w, h).expandedTo(minimumSize()).boundedTo(maximumSize());
    const QRect old = geometry();
    const int x = alignment_ == taRightJustify ? old.x() + old.width() - size.width() : old.x();
    int y = old.y();
    if (layout_ == tlCenter)
        y = old.y() + (old.height() - size.height()) / 2;
    else if (layout_ == tlBottom)
        y = old.y() + old.height() - size.height();
    setGeometry(QRect(QPoint(x, y), size));
}

void TRdCustomLabel::resizeEvent(QResizeEvent* event) {
    TRdGraphicControl::resizeEvent(event);
    AdjustBounds();
}

void TRdCustomLabel::FontChanged() {
    TRdGraphicControl::FontChanged();
    AdjustBounds();
}

QColor TRdCustomLabel::TextColor() const {
    const QColor own = Font()->ToQColor();
    if (!isEnabled())
        return SkinQColor(fontDisabledColor_,
                          palette().color(QPalette::Disabled, QPalette::WindowText));
    if (pressed_) return SkinQColor(fontDownColor_, own);
    if (hovered_) return SkinQColor(fontHoverColor_, own);
    return own;
}

void TRdCustomLabel::PaintBackground(QPainter& painter) {
    if (!transparent_) painter.fillRect(rect(), SkinQColor(color_));
    if (!bkgNormal_->Empty()) SkinDraw(painter, rect(), bkgNormal_->Graphic(), &bkgOption_->Rect());
}

void TRdCustomLabel::PaintText(QPainter& painter) {
    const QRect area = TextRect();
    const TLabelText text = ShownText();
    int y = area.top();
    if (layout_ == tlCenter)
        y += (area.height() - text.size.height()) / 2;
    else if (layout_ == tlBottom)
        y = area.bottom() + 1 - text.size.height();
    const QFontMetrics metrics(painter.font());
    for (int i = 0; i < text.lines.size(); ++i, y += text.lineHeight) {
        const QString& line = text.lines[i];
        const int lineWidth = metrics.horizontalAdvance(line);
        int x = area.left();
        if (alignment_ == taRightJustify)
            x = area.right() + 1 - lineWidth;
        else if (alignment_ == taCenter)
            x += (area.width() - lineWidth) / 2;
        const QPoint base(x, y + metrics.ascent());
        if (glowSize_ > 0) {
            const QPen pen = painter.pen();
            painter.setPen(QColor(255, 255, 255, 96));
            for (int dy = -glowSize_; dy <= glowSize_; ++dy)
                for (int dx = -glowSize_; dx <= glowSize_; ++dx)
                    if ((dx || dy) && qAbs(dx) + qAbs(dy) <= glowSize_)
                        painter.drawText(base + QPoint(dx, dy), line);
            painter.setPen(pen);
        }
        painter.drawText(base, line);
        if (i != text.accelLine) continue;
        const int left = x + metrics.horizontalAdvance(line.left(text.accelPos));
        const int right = left + metrics.horizontalAdvance(line[text.accelPos]) - 1;
        const int under = base.y() + metrics.underlinePos();
        painter.drawLine(left, under, right, under);
    }
}

void TRdCustomLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(DrawAlpha() / 255.0);
    PaintBackground(painter);
    painter.setClipRect(rect());
    painter.setFont(Font()->ToQFont());
    painter.setPen(TextColor());
    PaintText(painter);
}

void TRdCustomLabel::SetHovered(bool value) {
    if (hovered_ == value) return;
    hovered_ = value;
    if (!value) pressed_ = false;
    update();
}

void TRdCustomLabel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Change(pressed_, true);
    TRdGraphicControl::mousePressEvent(event);
}

void TRdCustomLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Change(pressed_, false);
    TRdGraphicControl::mouseReleaseEvent(event);
}

void TRdCustomLabel::UpdateMnemonic() {
    if (shortcutId_) releaseShortcut(shortcutId_);
    shortcutId_ = 0;
    if (!showAccelChar_) return;
    const QKeySequence key = QKeySequence::mnemonic(caption_);
    if (!key.isEmpty()) shortcutId_ = grabShortcut(key);
}

bool TRdCustomLabel::ShowToolTip(QEvent* event) {
    const auto* help = static_cast<QHelpEvent*>(event);
    QString hint = toolTip();
    if (hint.isEmpty() && autoShowHint_ && TextCut()) hint = AutoHintText();
    bool show = showHint_;
    if (show && OnShowHint) OnShowHint(*this, hint, show);
    if (show && !hint.isEmpty())
        QToolTip::showText(help->globalPos(), hint, this);
    else
        QToolTip::hideText();
    return true;
}

bool TRdCustomLabel::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::Enter:
            SetHovered(true);
            break;
        case QEvent::Leave:
            SetHovered(false);
            break;
        case QEvent::ToolTip:
            return ShowToolTip(event);
        case QEvent::Shortcut:
            if (static_cast<QShortcutEvent*>(event)->shortcutId() == shortcutId_ && focusControl_) {
                focusControl_->setFocus(Qt::ShortcutFocusReason);
                return true;
            }
            break;
        default:
            break;
    }
    return TRdGraphicControl::event(event);
}

}  // namespace qpt
