// Scroll bars, windowed and windowless, and the scroll box that carries them.
#include <QLabel>
#include <QScrollBar>
#include <functional>

#include "skin/RdScrollBarEx.h"
#include "skin/RdScrollBox.h"
#include "tools/SkinGallery/GalleryGround.h"
#include "tools/SkinGallery/GalleryPage.h"
#include "tools/SkinGallery/GalleryScale.h"
#include "tools/SkinGallery/GallerySections.h"

namespace qpt {

namespace {

// The pictures a form gives its bars; the white ones stand on dark ground.
template <class Bar>
Bar* Skinned(Bar* bar, TScrollBarModel::TScrollBarKind kind, bool white = false) {
    bar->SetKind(kind);
    const QSize across = Scaled(QSize(17, 160));
    bar->resize(kind == TScrollBarModel::sbVertical ? across : across.transposed());
    bar->AllSkin()->SetSkinClass("scrollbar");
    const QString stem = white ? "images/scrollbar_white_" : "images/scrollbar_";
    bar->AllSkinImage()->TrackCenter()->SetText("imgname=" + stem + "normal.png");
    bar->AllSkinImage()->TrackCenterHot()->SetText("imgname=" + stem + "over.png");
    bar->SetParams(0, 99, 25, 30);
    return bar;
}

void AddBarStates(TGallerySection& section, TScrollBarModel::TScrollBarKind kind,
                  const QString& name) {
    const auto add = [&](const QString& state, const std::function<void(TRdScrollBar&)>& set) {
        auto* bar = Skinned(new TRdScrollBar(section.Host()), kind);
        set(*bar);
        section.Add(name + ", " + state, OnGround(bar, kLightGround));
    };
    add("normal", [](TRdScrollBar&) {});
    add("thumb under the mouse",
        [](TRdScrollBar& bar) { bar.Bar().SetHotPart(TScrollBarPart::spThumb); });
    add("thumb held", [](TRdScrollBar& bar) {
        bar.Bar().Press(bar.Bar().Layout().thumb.center(), Qt::LeftButton);
    });
    add("at the end", [](TRdScrollBar& bar) { bar.SetPosition(bar.Max()); });
    add("long range: short thumb", [](TRdScrollBar& bar) { bar.SetParams(0, 999, 10, 500); });
    add("disabled", [](TRdScrollBar& bar) { bar.setEnabled(false); });
    section.NewRow();
}

QWidget* Content(const QSize& size) {
    auto* label = new QLabel;
    label->setText("Content larger than the box");
    label->setAlignment(Qt::AlignCenter);
    label->setStyleSheet(
        "background: qlineargradient(x1:0, y1:0, x2:1, y2:1, "
        "stop:0 #d8e6f7, stop:1 #6c8fb8);");
    label->resize(size);
    return label;
}

TRdScrollBox* Box(QWidget* parent, const QSize& content) {
    auto* box = new TRdScrollBox(parent);
    box->resize(Scaled(QSize(180, 120)));
    for (TRdScrollBar* bar : {box->HScroll(), box->VScroll()}) {
        bar->AllSkin()->SetSkinClass("scrollbar");
        bar->AllSkinImage()->TrackCenter()->SetText("imgname=images/scrollbar_normal.png");
        bar->AllSkinImage()->TrackCenterHot()->SetText("imgname=images/scrollbar_over.png");
    }
    box->VScroll()->SetWidth(Scaled(TRdScrollBox::kBarThickness));
    box->HScroll()->SetHeight(Scaled(TRdScrollBox::kBarThickness));
    box->setWidget(Content(content));
    return box;
}

}  // namespace

void AddScrollSection(TGalleryPage& page) {
    TGallerySection& section =
        page.AddSection("Scroll bars and scroll box (TRdScrollBar, TRdScrollBarEx, TRdScrollBox)");
    AddBarStates(section, TScrollBarModel::sbHorizontal, "horizontal");
    AddBarStates(section, TScrollBarModel::sbVertical, "vertical");

    auto* white = Skinned(new TRdScrollBarEx(section.Host()), TScrollBarModel::sbHorizontal, true);
    section.Add("windowless, white, on dark ground", OnGround(white, kDarkGround));

    auto* whiteHot =
        Skinned(new TRdScrollBarEx(section.Host()), TScrollBarModel::sbHorizontal, true);
    whiteHot->Bar().SetHotPart(TScrollBarPart::spThumb);
    section.Add("windowless, white, under the mouse", OnGround(whiteHot, kDarkGround));

    auto* hidden = Skinned(new TRdScrollBar(section.Host()), TScrollBarModel::sbHorizontal);
    hidden->SetParams(0, 9, 10, 0);
    section.Add("range fits the page: hidden", OnGround(hidden, kLightGround));
    section.NewRow();

    section.Add("box, both bars", Box(section.Host(), Scaled(QSize(400, 300))));
    section.Add("box, vertical bar only", Box(section.Host(), Scaled(QSize(160, 300))));
    auto* inner = Box(section.Host(), Scaled(QSize(400, 300)));
    inner->SetScrollbarInnerMode(true);
    inner->verticalScrollBar()->setValue(Scaled(60));
    section.Add("box, bars over the content, scrolled", inner);
}

}  // namespace qpt
