#include "skin/RdSkinMenu.h"

#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>
#include <QScreen>

#include "skin/RdMenuCtrl.h"
#include "skin/RdMenuForm.h"
#include "support/color/ColorNames.h"

namespace qpt {

namespace {

constexpr int kMetricLimit = 10000;

QRect AvailableAt(const QPoint& pos) {
    const QScreen* screen = QGuiApplication::screenAt(pos);
    if (!screen) screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect(pos, QSize(1 << 20, 1 << 20));
}

// Keeps a window on the screen: past the right or bottom edge it opens to
// the other side of `flipX` / `flipY`, then is pushed inside.
QPoint FitOnScreen(QRect window, int flipX, int flipY) {
    const QRect screen = AvailableAt(window.topLeft());
    if (window.right() > screen.right()) window.moveRight(flipX);
    if (window.bottom() > screen.bottom()) window.moveBottom(flipY);
    window.moveLeft(qBound(screen.left(), window.left(), screen.right() - window.width() + 1));
    window.moveTop(qBound(screen.top(), window.top(), screen.bottom() - window.height() + 1));
    return window.topLeft();
}

// A menu without an entry to show stays closed, as a platform menu does.
bool HasVisibleItem(const TMenuItem* level) {
    for (int i = 0; i < level->Count(); ++i)
        if (level->Items(i)->Visible()) return true;
    return false;
}

}  // namespace

TRdSkinMenu::TRdSkinMenu(QObject* parent)
    : QObject(parent),
      items_(new TMenuItem(this)),
      colorVertLine_(clDefault),
      fontNormal_(new TRdFont(this)),
      fontHighLight_(new TRdFont(this)),
      fontDisabled_(new TRdFont(this)),
      pictureCheck_(new TRdPictureProperty(this)),
      pictureRadio_(new TRdPictureProperty(this)),
      pictureArrow_(new TRdPictureProperty(this)),
      pictureShadow_(new TRdPictureProperty(this)),
      formBorder_(new TDesignRectProperty(this)),
      pictureShadowOpt_(new TDesignRectProperty(this)),
      allSkin_(new TRdSkinClass(this)) {
    fontDisabled_->SetColor(clGray);
    for (TRdFont* font : {fontNormal_, fontHighLight_, fontDisabled_}) {
        allSkin_->AddChild(font->AllSkin());
        connect(font, &TRdFont::Changed, this, &TRdSkinMenu::Refresh);
    }
    for (TRdPictureProperty* picture : {pictureCheck_, pictureRadio_, pictureArrow_})
        connect(picture, &TRdPictureProperty::Changed, this, &TRdSkinMenu::Refresh);
    connect(this, &TRdSkinMenu::Changed, this, &TRdSkinMenu::Refresh);
    connect(items_, &TMenuItem::Changed, this, [this](TMenuItem* item) {
        Refresh();
        if (ItemChange) ItemChange(*this, item);
    });
}

TRdSkinMenu::~TRdSkinMenu() {
    OnHide = nullptr;
    for (TRdMenuForm* form : Forms()) {
        disconnect(form, nullptr, this, nullptr);
        delete form;
    }
}

QList<TRdMenuForm*> TRdSkinMenu::Forms() const {
    QList<TRdMenuForm*> forms;
    for (const QPointer<TRdMenuForm>& form : forms_)
        if (form) forms.append(form);
    return forms;
}

// Sizes stay within reason, so that sums over the rows cannot overflow.
void TRdSkinMenu::SetMetric(int& field, int value) {
    value = qBound(-kMetricLimit, value, kMetricLimit);
    if (field == value) return;
    field = value;
    emit Changed();
}

void TRdSkinMenu::Refresh() {
    for (TRdMenuForm* form : Forms())
        form->Measure();
}

void TRdSkinMenu::SetImages(TRdImageNoteList* value) {
    if (images_ == value) return;
    if (images_) disconnect(images_, nullptr, this, nullptr);
    images_ = value;
    if (value) connect(value, &TRdImageNoteList::Changed, this, &TRdSkinMenu::Refresh);
    Refresh();
}

void TRdSkinMenu::SetTestPopup(bool value) {
    if (value) Popup(QCursor::pos());
}

TRdMenuForm* TRdSkinMenu::NewForm(TMenuItem* level, TRdMenuForm* parent) {
    auto* form = new TRdMenuForm(this, level, parent);
    connect(form, &TRdMenuForm::Gone, this, &TRdSkinMenu::FormGone);
    forms_.append(form);
    return form;
}

void TRdSkinMenu::Popup(const QPoint& screenPos) {
    if (Showing()) Finish(true);
    dismissed_ = false;
    if (!HasVisibleItem(items_)) {
        dismissed_ = true;
        return;
    }
    TRdMenuForm* form = NewForm(items_, nullptr);
    form->move(FitOnScreen(QRect(screenPos, form->size()), screenPos.x() - 1, screenPos.y() - 1));
    // The handler finds the window made and in place, and may move it.
    if (OnShow) OnShow(*this);
    form->show();
    form->Ctrl()->setFocus();
    if (!modalMenu_) return;
    QEventLoop loop;
    connect(this, &TRdSkinMenu::Closed, &loop, &QEventLoop::quit);
    loop.exec();
}

TMenuLooks TRdSkinMenu::Looks() const {
    return {metrics_,         alphaBlend_,   alphaBlendValue_, dropShadow_,     lightBorder_,
            colorBackground_, colorIconBar_, colorBorder_,     colorHighLight_, colorSeparator_,
            colorVertLine_,   fontNormal_,   fontHighLight_,   fontDisabled_,   pictureCheck_,
            pictureRadio_,    pictureArrow_, pictureShadow_,   formBorder_,     pictureShadowOpt_,
            images_.data()};
}

// The first row of the new level lines up with the row it opens from.
QWidget* TRdSkinMenu::OpenLevel(TMenuItem* item, const QRect& row, QWidget* from, bool firstHot) {
    auto* parent = qobject_cast<TRdMenuForm*>(from);
    if (!item || !HasVisibleItem(item) || !parent) return nullptr;
    TRdMenuForm* form = NewForm(item, parent);
    const int firstRow = form->Ctrl()->y() + 1 + metrics_.ItemBorderWidth;
    const QRect beside(QPoint(parent->frameGeometry().right() + 1, row.top() - firstRow),
                       form->size());
    form->move(FitOnScreen(beside, parent->frameGeometry().left() - 1, row.bottom()));
    form->show();
    form->Ctrl()->setFocus();
    if (firstHot) form->Ctrl()->MoveHot(1);
    return form;
}

bool TRdSkinMenu::CloseSubLevel(QWidget* level) {
    auto* form = qobject_cast<TRdMenuForm*>(level);
    if (!form || !form->ParentForm()) return false;
    form->close();
    return true;
}

void TRdSkinMenu::CloseLevelsAbove(QWidget* level) {
    const QList<TRdMenuForm*> forms = Forms();
    const qsizetype index = forms.indexOf(qobject_cast<TRdMenuForm*>(level));
    if (index < 0) return;
    for (qsizetype i = forms.size() - 1; i > index; --i)
        forms[i]->close();
}

// A level closed by itself (a key, the window system): the levels above go
// with it, and the one below takes the keys again.
void TRdSkinMenu::FormGone(TRdMenuForm* form) {
    CloseLevelsAbove(form);
    forms_.removeAll(form);
    if (finishing_) return;
    if (TRdMenuForm* parent = form->ParentForm()) {
        parent->Ctrl()->setFocus();
        parent->Ctrl()->update();
    }
    if (!Forms().isEmpty()) return;
    dismissed_ = true;
    Hidden();
}

void TRdSkinMenu::CloseMenu() {
    Finish(true);
}

void TRdSkinMenu::Choose(TMenuItem* item) {
    Finish(false);
    item->Click();
}

void TRdSkinMenu::Finish(bool dismissed) {
    if (finishing_) return;
    dismissed_ = dismissed;
    const QList<TRdMenuForm*> forms = Forms();
    if (forms.isEmpty()) return;
    finishing_ = true;
    for (auto it = forms.rbegin(); it != forms.rend(); ++it)
        (*it)->close();
    forms_.clear();
    finishing_ = false;
    Hidden();
}

void TRdSkinMenu::Hidden() {
    if (OnHide) OnHide(*this);
    emit Closed();
}

}  // namespace qpt
