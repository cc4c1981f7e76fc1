#include "skin/RdControl.h"

#include <QEvent>

namespace qpt {

TRdControl::TRdControl(QWidget* parent)
    : QWidget(parent), font_(new TRdFont(this)), allSkin_(new TRdSkinClass(this)) {
    allSkin_->AddChild(font_->AllSkin());
    allSkin_->SetBatchFont(font_);
    connect(font_, &TRdFont::Changed, this, &TRdControl::FontChanged);
    connect(allSkin_->Draw(), &TRdSkinClassDraw::Changed, this, qOverload<>(&QWidget::update));
    setFont(font_->ToQFont());
}

bool TRdControl::event(QEvent* event) {
    if (event->type() == QEvent::ParentChange) TakeParentFont();
    return QWidget::event(event);
}

void TRdControl::TakeParentFont() {
    auto* parent = qobject_cast<TRdControl*>(parentWidget());
    if (parent && font_->ParentFont()) font_->Assign(*parent->Font());
}

void TRdControl::FontChanged() {
    setFont(font_->ToQFont());
    for (QObject* child : children())
        if (auto* control = qobject_cast<TRdControl*>(child)) control->TakeParentFont();
    update();
}

}  // namespace qpt
