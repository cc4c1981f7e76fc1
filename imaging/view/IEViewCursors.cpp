#include "imaging/view/IEViewCursors.h"

#include <QPainter>
#include <QPixmap>
#include <algorithm>

#include "imaging/IEInteractionTypes.h"

namespace qpt {

Qt::CursorShape IEQtCursorShape(int cursor) {
    switch (cursor) {
        case crSizeAll:
        case crIEMoveLayer:
            return Qt::SizeAllCursor;
        case crSizeNESW:
            return Qt::SizeBDiagCursor;
        case crSizeNWSE:
            return Qt::SizeFDiagCursor;
        case crSizeNS:
            return Qt::SizeVerCursor;
        case crSizeWE:
            return Qt::SizeHorCursor;
        case crIERotate:
            return Qt::CrossCursor;
        default:
            return Qt::ArrowCursor;
    }
}

QCursor IERingCursor(int diameter) {
    // X servers refuse very large cursors; a ring beyond that is drawn cut.
    const int d = std::clamp(diameter, 3, 255);
    QPixmap pixmap(d + 2, d + 2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 3));
    painter.drawEllipse(QRectF(1, 1, d, d));
    painter.setPen(QPen(Qt::black, 1));
    painter.drawEllipse(QRectF(1, 1, d, d));
    painter.end();
    return QCursor(pixmap, (d + 2) / 2, (d + 2) / 2);
}

}  // namespace qpt
