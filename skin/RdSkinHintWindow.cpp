#include "skin/RdSkinHintWindow.h"

#include <QPainter>
#include <climits>

#include "skin/RdSkinHint.h"
#include "skin/SkinDraw.h"
#include "skin/SkinQColor.h"

namespace qpt {

namespace {

constexpr quint32 kPlainFrame = 0x767676;
const QString kSplit = QStringLiteral("##");

}  // namespace

TRdSkinHintWindow::TRdSkinHintWindow(TRdSkinHint* hint)
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput |
                           Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint),
      hint_(hint) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_TranslucentBackground);
}

TRdSkinHintWindow::TParts TRdSkinHintWindow::SplitHint(const QString& text) {
    const qsizetype at = text.indexOf(kSplit);
    if (at < 0) return {{}, text};
    return {text.left(at), text.mid(at + kSplit.size())};
}

void TRdSkinHintWindow::SetHintText(const QString& text) {
    parts_ = SplitHint(text);
    update();
}

int TRdSkinHintWindow::WrapWidth() const {
    return hint_->MaxWidth() > 0 ? qMax(1, hint_->MaxWidth() - 2 * hint_->TextX()) : 0;
}

int TRdSkinHintWindow::TextFlags() const {
    static constexpr int kAlign[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    return kAlign[qBound(0, int(hint_->TextAlign()), 2)] | Qt::AlignTop | Qt::TextWordWrap;
}

QSize TRdSkinHintWindow::PartSize(const QString& part, const QFont& font) const {
    if (part.isEmpty()) return {};
    const int wrap = WrapWidth();
    const QRect room(0, 0, wrap > 0 ? wrap : INT_MAX / 2, INT_MAX / 2);
    return QFontMetrics(font).boundingRect(room, TextFlags(), part).size();
}

QSize TRdSkinHintWindow::CalcHintSize() const {
    const QSize title = PartSize(parts_.Title, hint_->FontTitle()->ToQFont());
    const QSize text = PartSize(parts_.Text, hint_->Font()->ToQFont());
    QSize size(qMax(title.width(), text.width()) + 2 * hint_->TextX(),
               title.height() + text.height() + 2 * hint_->TextY());
    if (hint_->MaxHeight() > 0) size.setHeight(qMin(size.height(), hint_->MaxHeight()));
    return size;
}

QRect TRdSkinHintWindow::TitleRect() const {
    const int height = PartSize(parts_.Title, hint_->FontTitle()->ToQFont()).height();
    return QRect(hint_->TextX(), hint_->TextY(), width() - 2 * hint_->TextX(), height);
}

QRect TRdSkinHintWindow::TextRect() const {
    const QRect title = TitleRect();
    return QRect(title.left(), title.bottom() + 1, title.width(),
                 height() - hint_->TextY() - title.bottom() - 1);
}

void TRdSkinHintWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (!hint_->BackgroundImage()->Empty()) {
        SkinDraw(painter, rect(), hint_->BackgroundImage()->Graphic(),
                 &hint_->BackgroundOption()->Rect());
    } else {
        painter.fillRect(rect(), SkinQColor(hint_->HintColor()));
        painter.setPen(SkinQColor(kPlainFrame));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    painter.setClipRect(rect().adjusted(0, 0, 0, -hint_->TextY()));
    painter.setFont(hint_->FontTitle()->ToQFont());
    painter.setPen(hint_->FontTitle()->ToQColor());
    painter.drawText(TitleRect(), TextFlags(), parts_.Title);
    painter.setFont(hint_->Font()->ToQFont());
    painter.setPen(hint_->Font()->ToQColor());
    painter.drawText(TextRect(), TextFlags(), parts_.Text);
}

}  // namespace qpt
