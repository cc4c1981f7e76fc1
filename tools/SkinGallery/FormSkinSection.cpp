// The form skin: the shadow window composed around a form, border lines and
// rounded corners. The shadow is a window of its own on the screen; here its
// composed picture is drawn with the form on top, as a compositor shows it.
#include <QPainter>

#include "skin/RdFormShadowBg.h"
#include "skin/RdFormSkin.h"
#include "tools/SkinGallery/GalleryPage.h"
#include "tools/SkinGallery/GalleryScale.h"
#include "tools/SkinGallery/GallerySections.h"

namespace qpt {

namespace {

class TFormPreview : public QWidget {
public:
    TFormPreview(QWidget* parent, const QSize& formSize)
        : QWidget(parent), skin_(&form_), margin_(Scaled(15)) {
        form_.resize(formSize);
        resize(formSize + QSize(2 * margin_, 2 * margin_));
        // The pinned window's own settings.
        skin_.PicShadow()->SetText("imgname=images/bg_shadow_a.png");
        skin_.PicShadowOption()->Rect().Set(margin_, margin_, margin_, margin_,
                                            TSuperStretchMode::sdmFrame);
        skin_.ShadowFrame()->SetAll(margin_);
    }
    TRdFormSkin& Skin() { return skin_; }

protected:
    void paintEvent(QPaintEvent*) override {
        TRdFormShadowBg& shadow = *skin_.Shadow();
        shadow.resize(size());
        shadow.Compose();
        QPainter painter(this);
        painter.drawImage(QPoint(), shadow.Buffer(), QRect(QPoint(), shadow.ComposedSize()));
        // Drawn apart: a widget rendered straight into another's paint
        // loses the offset of a grab.
        const QPoint at(margin_, margin_);
        if (!form_.mask().isEmpty()) painter.setClipRegion(form_.mask().translated(at));
        painter.drawPixmap(at, form_.grab());
    }

private:
    QWidget form_;
    TRdFormSkin skin_;
    int margin_;
};

}  // namespace

void AddFormSkinSection(TGalleryPage& page) {
    TGallerySection& section = page.AddSection("Form skin (TRdFormSkin)");
    const QSize size = Scaled(QSize(150, 90));

    section.Add("shadow, form colour clWindow", new TFormPreview(section.Host(), size));

    auto* lines = new TFormPreview(section.Host(), size);
    lines->Skin().BorderLines()->SetEnabled(true);
    lines->Skin().BorderLines()->SetColor(0x000000);
    section.Add("border lines, clBlack 1 px", lines);

    auto* wide = new TFormPreview(section.Host(), size);
    wide->Skin().BorderLines()->SetEnabled(true);
    wide->Skin().BorderLines()->SetWidth(Scaled(3));
    wide->Skin().BorderLines()->SetTop(false);
    wide->Skin().BorderLines()->SetBottom(false);
    section.Add("border lines, 3 px, sides only", wide);

    auto* round = new TFormPreview(section.Host(), size);
    round->Skin().EllipseSize()->SetWidth(Scaled(16));
    round->Skin().EllipseSize()->SetHeight(Scaled(16));
    section.Add("rounded corners 16 x 16", round);
}

}  // namespace qpt
