#include "skin/RdMenuForm.h"

#include <QMouseEvent>
#include <QPainter>

#include "skin/DesignRectProperty.h"
#include "skin/RdMenuCtrl.h"
#include "skin/RdPictureProperty.h"
#include "skin/SkinDraw.h"

namespace qpt {

TRdMenuForm::TRdMenuForm(TMenuHost* menu, TMenuItem* level, TRdMenuForm* parentForm)
    : QWidget(nullptr, Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint),
      menu_(menu),
      parentForm_(parentForm),
      ctrl_(new TRdMenuCtrl(menu, level, this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setMouseTracking(true);
    const TMenuLooks looks = menu->Looks();
    if (looks.DropShadow && !looks.PictureShadow->Empty())
        setAttribute(Qt::WA_TranslucentBackground);
    if (looks.AlphaBlend) setWindowOpacity(qBound(0, looks.AlphaBlendValue, 255) / 255.0);
    setFocusProxy(ctrl_);
    Measure();
}

// The shadow picture's slicing gives the room around the menu that the
// shadow takes; the form border adds to it.
QMargins TRdMenuForm::Margins() const {
    const TDesignRect& border = menu_->Looks().FormBorder->Rect();
    QMargins margins(border.Left(), border.Top(), border.Right(), border.Bottom());
    if (testAttribute(Qt::WA_TranslucentBackground)) {
        const TDesignRect& shadow = menu_->Looks().PictureShadowOpt->Rect();
        margins += QMargins(shadow.Left(), shadow.Top(), shadow.Right(), shadow.Bottom());
    }
    return margins;
}

void TRdMenuForm::Measure() {
    ctrl_->Measure();
    const QMargins margins = Margins();
    ctrl_->move(margins.left(), margins.top());
    resize(ctrl_->size().grownBy(margins));
}

void TRdMenuForm::paintEvent(QPaintEvent*) {
    if (!testAttribute(Qt::WA_TranslucentBackground)) return;
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    SkinDraw(painter, rect(), menu_->Looks().PictureShadow->Graphic(),
             &menu_->Looks().PictureShadowOpt->Rect());
}

TRdMenuForm* TRdMenuForm::LevelAt(const QPoint& globalPos) const {
    const QList<TRdMenuForm*> forms = menu_->Forms();
    for (auto it = forms.rbegin(); it != forms.rend(); ++it)
        if ((*it)->isVisible() && (*it)->frameGeometry().contains(globalPos)) return *it;
    return nullptr;
}

// While a higher level is up it holds the mouse: a press on a lower level
// closes the levels above it, a press anywhere else closes the menu.
void TRdMenuForm::mousePressEvent(QMouseEvent* event) {
    if (rect().contains(event->position().toPoint())) return;
    if (TRdMenuForm* below = LevelAt(event->globalPosition().toPoint()))
        menu_->CloseLevelsAbove(below);
    else
        menu_->CloseMenu();
}

void TRdMenuForm::mouseMoveEvent(QMouseEvent* event) {
    const QPoint global = event->globalPosition().toPoint();
    TRdMenuForm* below = LevelAt(global);
    if (below && below != this) below->Ctrl()->HoverAt(below->Ctrl()->mapFromGlobal(global));
}

void TRdMenuForm::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    emit Gone(this);
}

}  // namespace qpt
