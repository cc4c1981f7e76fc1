#include "tools/SkinGallery/GalleryPage.h"
#include "tools/SkinGallery/GalleryScale.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QVBoxLayout>

namespace qpt {

namespace {

QLabel* MakeLabel(const QString& text, QWidget* parent, int pixelSize, bool bold) {
    auto* label = new QLabel(text, parent);
    QFont font = label->font();
    font.setPixelSize(Scaled(pixelSize));
    font.setBold(bold);
    label->setFont(font);
    return label;
}

}  // namespace

TGallerySection::TGallerySection(QWidget* page, QVBoxLayout* pageLayout, const QString& title)
    : host_(new QWidget(page)), grid_(new QGridLayout(host_)) {
    pageLayout->addWidget(MakeLabel(title, page, 15, true));
    grid_->setHorizontalSpacing(24);
    grid_->setVerticalSpacing(14);
    grid_->setContentsMargins(0, 4, 0, 8);
    grid_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    pageLayout->addWidget(host_);
}

void TGallerySection::Add(const QString& caption, QWidget* control) {
    auto* cell = new QWidget(host_);
    auto* layout = new QVBoxLayout(cell);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    // Skinned controls keep the size their form gives them.
    ScaleFonts(control);
    control->setParent(cell);
    control->setFixedSize(control->size());
    layout->addWidget(control, 0, Qt::AlignLeft | Qt::AlignTop);
    layout->addWidget(MakeLabel(caption, cell, 11, false), 0, Qt::AlignLeft);
    layout->addStretch();
    grid_->addWidget(cell, row_, column_, Qt::AlignLeft | Qt::AlignTop);
    if (++column_ == kColumns) NewRow();
}

void TGallerySection::NewRow() {
    if (column_ == 0) return;
    ++row_;
    column_ = 0;
}

TGalleryPage::TGalleryPage(const QString& title) : layout_(new QVBoxLayout(this)) {
    setWindowTitle(title);
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, QColor(0xE9, 0xEB, 0xEE));
    palette.setColor(QPalette::WindowText, QColor(0x20, 0x22, 0x26));
    setPalette(palette);
    layout_->setContentsMargins(16, 12, 16, 16);
    layout_->setSpacing(6);
    layout_->setSizeConstraint(QLayout::SetFixedSize);
    layout_->addWidget(MakeLabel(title, this, 20, true));
}

TGallerySection& TGalleryPage::AddSection(const QString& title) {
    sections_.push_back(std::make_unique<TGallerySection>(this, layout_, title));
    return *sections_.back();
}

QImage TGalleryPage::Render() {
    layout_->activate();
    adjustSize();
    QApplication::processEvents();
    return grab().toImage();
}

}  // namespace qpt
