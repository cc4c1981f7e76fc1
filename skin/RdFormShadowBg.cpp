#include "skin/RdFormShadowBg.h"

#include <QPainter>

#include "skin/RdFormSkin.h"
#include "skin/SkinDraw.h"

namespace qpt {

TRdFormShadowBg::TRdFormShadowBg(TRdFormSkin* skin)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
                           Qt::WindowTransparentForInput | Qt::NoDropShadowWindowHint),
      skin_(skin) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setObjectName(QStringLiteral("TRdFormShadowBg"));
}

void TRdFormShadowBg::SetAlphaBlendValue(int value) {
    alphaBlend_ = qBound(0, value, 255);
}

void TRdFormShadowBg::ApplyAlpha(bool live) {
    const qreal opacity = skin_ && live ? alphaBlend_ / 255.0 : 0.0;
    if (!qFuzzyCompare(windowOpacity() + 1, opacity + 1)) setWindowOpacity(opacity);
}

void TRdFormShadowBg::GrowBuffer(const QSize& size) {
    if (buffer_.width() >= size.width() && buffer_.height() >= size.height()) return;
    buffer_ = QImage(qMax(buffer_.width(), size.width() + kBufferSlack),
                     qMax(buffer_.height(), size.height() + kBufferSlack),
                     QImage::Format_ARGB32_Premultiplied);
}

void TRdFormShadowBg::Compose() {
    const QSize size = this->size();
    if (size == composedSize_ || size.isEmpty()) return;
    GrowBuffer(size);
    buffer_.fill(Qt::transparent);
    {
        QPainter painter(&buffer_);
        if (skin_) {
            SkinDraw(painter, QRect(QPoint(), size), skin_->PicShadow()->Graphic(),
                     &skin_->PicShadowOption()->Rect());
            if (skin_->OnShadowPaintEnd) skin_->OnShadowPaintEnd(*skin_, painter);
        }
    }
    composedSize_ = size;
    update();
}

void TRdFormShadowBg::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QPoint(), buffer_, QRect(QPoint(), composedSize_));
}

}  // namespace qpt
