#pragma once

#include <QGridLayout>
#include <QImage>
#include <QString>
#include <QWidget>
#include <memory>
#include <vector>

class QVBoxLayout;

namespace qpt {

// One family of controls on the gallery page: a title over a grid of cells,
// each a control at its own size with a caption under it.
class TGallerySection {
public:
    TGallerySection(QWidget* page, QVBoxLayout* pageLayout, const QString& title);

    // The parent a control of this section is made with.
    QWidget* Host() const { return host_; }
    // Puts the control (made on Host()) into the next cell.
    void Add(const QString& caption, QWidget* control);
    // Ends the row: the next cell starts a new one.
    void NewRow();

private:
    static constexpr int kColumns = 6;

    QWidget* host_;
    QGridLayout* grid_;
    int row_ = 0;
    int column_ = 0;
};

// The page the gallery shows and writes out: sections under each other on a
// neutral ground, in the order they are added.
class TGalleryPage : public QWidget {
public:
    explicit TGalleryPage(const QString& title);

    TGallerySection& AddSection(const QString& title);
    // Lays the page out at its natural size and draws it.
    QImage Render();

private:
    QVBoxLayout* layout_;
    std::vector<std::unique_ptr<TGallerySection>> sections_;
};

}  // namespace qpt
