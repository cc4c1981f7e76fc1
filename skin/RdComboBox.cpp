#include "skin/RdComboBox.h"

#include <QLineEdit>
#include <QPainter>

#include "skin/FillSkinRect.h"
#include "skin/RdGraphic.h"
#include "skin/SkinDraw.h"
#include "skin/SkinQColor.h"
#include "support/color/ColorNames.h"

namespace qpt {

namespace {

// Without a picture the arrow is drawn in a square this wide at the right.
constexpr int kPlainArrowWidth = 16;

}  // namespace

TRdComboBox::TRdComboBox(QWidget* parent)
    : QComboBox(parent),
      form_(new TRdComboboxListForm(this)),
      background_(NewPicture()),
      backgroundClick_(NewPicture()),
      backgroundFocus_(NewPicture()),
      backgroundHot_(NewPicture()),
      backgroundDisable_(NewPicture()),
      backgroundOption_(new TDesignRectProperty(this)),
      font_(new TRdFont(this)),
      allSkin_(new TRdSkinClass(this)),
      fontDisableColor_(clGrayText) {
    allSkin_->AddChild(font_->AllSkin());
    connect(font_, &TRdFont::Changed, this, &TRdComboBox::FontChanged);
    connect(backgroundOption_, &TDesignRectProperty::Changed, this, qOverload<>(&QWidget::update));
    connect(allSkin_->Draw(), &TRdSkinClassDraw::Changed, this, qOverload<>(&QWidget::update));
    connect(form_->ListBox(), &TRdComboBoxList::Chosen, this, &TRdComboBox::Choose);
    connect(form_, &TRdComboboxListForm::Closed, this, qOverload<>(&QWidget::update));
    // Chosen from the list or stepped with the keys on the closed face.
    connect(this, &QComboBox::activated, this, [this] {
        if (OnSelect) OnSelect(*this);
    });
    form_->Bg()->SetColor(clWindow);
    form_->Bg()->SetBorderColor(clWindowFrame);
    form_->ListBox()->SetTextOffX(textOffX_);
    FontChanged();
}

TRdPictureProperty* TRdComboBox::NewPicture() {
    auto* picture = new TRdPictureProperty(this);
    connect(picture, &TRdPictureProperty::Changed, this, qOverload<>(&QWidget::update));
    return picture;
}

void TRdComboBox::SetFontDisableColor(quint32 value) {
    fontDisableColor_ = value;
    update();
}

void TRdComboBox::SetBorderColor(quint32 value) {
    form_->Bg()->SetBorderColor(value);
    update();
}

void TRdComboBox::SetColor(quint32 value) {
    form_->Bg()->SetColor(value);
    update();
}

void TRdComboBox::SetStyle(TComboBoxStyle value) {
    style_ = value;
    setEditable(value == csDropDown || value == csSimple);
    if (QLineEdit* edit = lineEdit()) {
        edit->setFrame(false);
        edit->setStyleSheet("background: transparent");
    }
    PlaceEdit();
    update();
}

void TRdComboBox::SetTextOffX(int value) {
    textOffX_ = value;
    form_->ListBox()->SetTextOffX(value);
    PlaceEdit();
    update();
}

// The typing field sits where the face would draw its text, in its colour.
void TRdComboBox::PlaceEdit() {
    QLineEdit* edit = lineEdit();
    if (!edit) return;
    edit->setGeometry(TextRect());
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Text, font_->ToQColor());
    edit->setPalette(palette);
}

void TRdComboBox::FontChanged() {
    setFont(font_->ToQFont());
    form_->ListBox()->Font()->Assign(*font_);
    PlaceEdit();
    update();
}

TRdComboBox::TFaceState TRdComboBox::FaceState() const {
    if (!isEnabled()) return fsDisable;
    if (DroppedDown()) return fsClick;
    if (hot_) return fsHot;
    if (hasFocus()) return fsFocus;
    return fsNormal;
}

TRdPictureProperty* TRdComboBox::FacePicture() const {
    TRdPictureProperty* picture = background_;
    switch (FaceState()) {
        case fsDisable:
            picture = backgroundDisable_;
            break;
        case fsClick:
            picture = backgroundClick_;
            break;
        case fsHot:
            picture = backgroundHot_;
            break;
        case fsFocus:
            picture = backgroundFocus_;
            break;
        case fsNormal:
            break;
    }
    return picture->Empty() ? background_ : picture;
}

// The text keeps clear of the picture's right slice, where the arrow is.
QRect TRdComboBox::TextRect() const {
    const int right = background_->Empty() ? kPlainArrowWidth : backgroundOption_->Right();
    return rect().adjusted(textOffX_, 0, -std::max(right, 0), 0);
}

void TRdComboBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(allSkin_->Draw()->DrawAlpha() / 255.0);
    TRdPictureProperty* picture = FacePicture();
    if (!picture->Empty())
        SkinDraw(painter, rect(), picture->Graphic(), &backgroundOption_->Rect());
    else
        PaintPlainFace(painter);
    if (isEditable()) return;
    const QRect text = TextRect();
    painter.setFont(font());
    painter.setPen(isEnabled() ? font_->ToQColor() : SkinQColor(fontDisableColor_));
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, text.width()));
}

void TRdComboBox::PaintPlainFace(QPainter& painter) const {
    FillSkinRect(painter, rect(), Color(), Color(), TGradientDirection::gdHorizontal);
    painter.setPen(SkinQColor(BorderColor()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const QPoint tip(width() - kPlainArrowWidth / 2, height() / 2 + 2);
    painter.setPen(QPen(font_->ToQColor(), 1.5));
    painter.drawPolyline(QList<QPoint>{tip + QPoint(-4, -4), tip, tip + QPoint(4, -4)});
}

// The stock box lays its own item view out anew for every font, and that
// measures with the font database. That view never shows (the list opens in
// our own popup), so a hidden box hands the change on only when it shows or
// is asked for its size.
void TRdComboBox::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange && !isVisible()) {
        fontChangeWaiting_ = true;
        QWidget::changeEvent(event);
        return;
    }
    QComboBox::changeEvent(event);
}

void TRdComboBox::PassOnFontChange() const {
    if (!fontChangeWaiting_) return;
    fontChangeWaiting_ = false;
    QEvent change(QEvent::FontChange);
    const_cast<TRdComboBox*>(this)->QComboBox::changeEvent(&change);
}

void TRdComboBox::showEvent(QShowEvent* event) {
    PassOnFontChange();
    QComboBox::showEvent(event);
}

QSize TRdComboBox::sizeHint() const {
    PassOnFontChange();
    return QComboBox::sizeHint();
}

QSize TRdComboBox::minimumSizeHint() const {
    PassOnFontChange();
    return QComboBox::minimumSizeHint();
}

void TRdComboBox::resizeEvent(QResizeEvent* event) {
    QComboBox::resizeEvent(event);
    PlaceEdit();
}

void TRdComboBox::SetHot(bool value) {
    if (hot_ == value) return;
    hot_ = value;
    update();
}

void TRdComboBox::enterEvent(QEnterEvent* event) {
    SetHot(true);
    QComboBox::enterEvent(event);
}

void TRdComboBox::leaveEvent(QEvent* event) {
    SetHot(false);
    QComboBox::leaveEvent(event);
}

void TRdComboBox::showPopup() {
    if (count() == 0 || DroppedDown()) return;
    TRdComboBoxList* list = form_->ListBox();
    QStringList items;
    for (int i = 0; i < count(); ++i)
        items << itemText(i);
    list->SetItems(items);
    const int rows = std::min(count(), std::max(maxVisibleItems(), 1));
    form_->Arrange(width(), rows);
    list->SetItemIndex(currentIndex());
    list->SetTopIndex(currentIndex() - rows / 2);
    form_->PopupAt(QRect(mapToGlobal(QPoint(0, 0)), size()));
    update();
    if (OnDropDownShow) OnDropDownShow(*this);
}

void TRdComboBox::hidePopup() {
    form_->hide();
}

void TRdComboBox::Choose(int index) {
    hidePopup();
    setCurrentIndex(index);
    emit activated(index);
    emit textActivated(itemText(index));
}

}  // namespace qpt
