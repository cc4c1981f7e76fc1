#include "skin/RdMenuCtrl.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "skin/MenuItem.h"
#include "skin/RdGraphic.h"
#include "skin/RdImageNoteList.h"
#include "skin/RdPictureProperty.h"

namespace qpt {

TRdMenuCtrl::TRdMenuCtrl(TMenuHost* menu, TMenuItem* level, QWidget* parent)
    : TRdCustomControl(parent), menu_(menu), level_(level) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    Measure();
}

bool TRdMenuCtrl::HasIconBar() const {
    if (menu_->Looks().Images) return true;
    for (int i = 0; i < level_->Count(); ++i) {
        const TMenuItem* item = level_->Items(i);
        if (item->Visible() && !item->IsLine() && (item->Checked() || !item->Bitmap()->Empty()))
            return true;
    }
    return false;
}

TMenuMetrics TRdMenuCtrl::Metrics() const {
    TMenuMetrics m = menu_->Looks().Metrics;
    if (const TRdImageNoteList* images = menu_->Looks().Images)
        m.IconSize = QSize(images->Width(), images->Height());
    if (!menu_->Looks().PictureArrow->Empty())
        m.ArrowWidth = menu_->Looks().PictureArrow->Graphic()->Width();
    m.HasBar = HasIconBar();
    return m;
}

const TRdFont* TRdMenuCtrl::RowFont(const TMenuItem& item, bool hot) const {
    if (!item.Enabled()) return menu_->Looks().FontDisabled;
    return hot ? menu_->Looks().FontHighLight : menu_->Looks().FontNormal;
}

QFont TRdMenuCtrl::CaptionFont(const TRdFont& font, const TMenuItem& item) {
    QFont result = font.ToQFont();
    if (item.Default()) result.setBold(true);
    return result;
}

void TRdMenuCtrl::Measure() {
    std::vector<TMenuRowSpec> rows;
    for (int i = 0; i < level_->Count(); ++i) {
        const TMenuItem* item = level_->Items(i);
        const QFontMetrics metrics(CaptionFont(*RowFont(*item, false), *item));
        rows.push_back({item->IsLine(), item->Visible(), item->Count() > 0,
                        metrics.size(Qt::TextShowMnemonic, item->Caption()).width(),
                        metrics.height()});
    }
    layout_ = menulayout::Layout(Metrics(), rows);
    resize(layout_.Size);
    if (!level_->Items(hot_)) hot_ = -1;
    update();
}

QRect TRdMenuCtrl::ItemRect(int index) const {
    if (index < 0 || index >= int(layout_.Rows.size()) || layout_.Rows[index].isEmpty()) return {};
    return menulayout::PaintRect(menu_->Looks().Metrics, layout_.Rows[index]);
}

int TRdMenuCtrl::ItemAt(const QPoint& pos) const {
    for (int i = 0; i < int(layout_.Rows.size()); ++i)
        if (ItemRect(i).contains(pos)) return i;
    return -1;
}

void TRdMenuCtrl::SetHotIndex(int index) {
    const TMenuItem* item = level_->Items(index);
    if (!item || !item->Selectable()) index = -1;
    if (hot_ == index) return;
    hot_ = index;
    update();
}

// A closed level lingers until its deferred deletion; it no longer counts.
QWidget* TRdMenuCtrl::SubForm() const {
    return sub_ && sub_->isVisible() ? sub_.data() : nullptr;
}

// Wraps round at either end, as platform menus do; stays put when nothing
// can be hot.
void TRdMenuCtrl::MoveHot(int step) {
    const int count = level_->Count();
    int index = hot_ < 0 && step < 0 ? count : hot_;
    for (int tries = 0; tries < count; ++tries) {
        index = (index + step + count) % count;
        if (level_->Items(index)->Selectable()) {
            SetHotIndex(index);
            return;
        }
    }
}

// One entry with the letter is chosen at once; with several, each press
// moves to the next of them.
bool TRdMenuCtrl::Accelerate(QChar letter) {
    letter = letter.toLower();
    QList<int> matches;
    for (int i = 0; i < level_->Count(); ++i)
        if (level_->Items(i)->Selectable() && level_->Items(i)->Accelerator() == letter)
            matches.append(i);
    if (matches.isEmpty()) return false;
    if (matches.size() == 1) {
        SetHotIndex(matches.front());
        Activate(matches.front(), true);
        return true;
    }
    auto next = std::upper_bound(matches.begin(), matches.end(), hot_);
    SetHotIndex(next == matches.end() ? matches.front() : *next);
    return true;
}

void TRdMenuCtrl::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
            MoveHot(-1);
            break;
        case Qt::Key_Down:
            MoveHot(1);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            Activate(hot_, true);
            break;
        case Qt::Key_Right:
            if (const TMenuItem* item = level_->Items(hot_); item && item->Count() > 0)
                OpenSub(hot_, true);
            break;
        case Qt::Key_Left:
            menu_->CloseSubLevel(window());
            break;
        case Qt::Key_Escape:
            if (!menu_->CloseSubLevel(window())) menu_->CloseMenu();
            break;
        default:
            if (event->text().isEmpty() || !Accelerate(event->text().front())) {
                event->ignore();
                return;
            }
    }
    event->accept();
}

void TRdMenuCtrl::HoverAt(const QPoint& pos) {
    const int index = ItemAt(pos);
    const TMenuItem* item = level_->Items(index);
    if (!item || !item->Selectable()) return;
    SetHotIndex(index);
    if (index == subIndex_ && SubForm()) return;
    if (item->Count() > 0)
        OpenSub(index, false);
    else
        CloseSub();
}

void TRdMenuCtrl::mouseMoveEvent(QMouseEvent* event) {
    HoverAt(event->position().toPoint());
}

void TRdMenuCtrl::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const int index = ItemAt(event->position().toPoint());
    if (index >= 0 && index == hot_) Activate(index, false);
}

// The hot entry stays lit while its own level is open.
void TRdMenuCtrl::leaveEvent(QEvent*) {
    if (!SubForm()) SetHotIndex(-1);
}

void TRdMenuCtrl::Activate(int index, bool fromKeyboard) {
    TMenuItem* item = level_->Items(index);
    if (!item || !item->Selectable()) return;
    if (item->Count() > 0)
        OpenSub(index, fromKeyboard);
    else
        menu_->Choose(item);
}

void TRdMenuCtrl::OpenSub(int index, bool fromKeyboard) {
    CloseSub();
    const QRect row = ItemRect(index);
    sub_ = menu_->OpenLevel(level_->Items(index), QRect(mapToGlobal(row.topLeft()), row.size()),
                            window(), fromKeyboard);
    subIndex_ = sub_ ? index : -1;
    update();
}

void TRdMenuCtrl::CloseSub() {
    if (sub_) menu_->CloseLevelsAbove(window());
    sub_ = nullptr;
    subIndex_ = -1;
    update();
}

}  // namespace qpt
