// Labels, the markup label, the edit field and the progress bar.
#include "skin/ColorTable.h"
#include "skin/RdEdit.h"
#include "skin/RdHtmLabel.h"
#include "skin/RdLabel.h"
#include "skin/RdProgressBar.h"
#include "tools/SkinGallery/GalleryEvents.h"
#include "tools/SkinGallery/GalleryGround.h"
#include "tools/SkinGallery/GalleryPage.h"
#include "tools/SkinGallery/GalleryScale.h"
#include "tools/SkinGallery/GallerySections.h"

namespace qpt {

namespace {

quint32 SkinColor(const QString& name) {
    quint32 color = 0;
    IdentToColor(name, color);
    return color;
}

template <class Label>
Label* MakeLabel(QWidget* parent, const QString& caption, QSize size) {
    auto* label = new Label(parent);
    label->resize(size);
    label->Font()->SetColor(SkinColor("text_color.cl_text_b"));
    // Links of the markup copy the label's font when the caption is set:
    // scaled after that, each font is scaled once, the copies included.
    label->SetCaption(caption);
    ScaleFonts(label);
    return label;
}

void AddLabels(TGallerySection& section) {
    QWidget* host = section.Host();
    const QSize size = Scaled(QSize(150, 40));
    section.Add("label",
                OnGround(MakeLabel<TRdLabel>(host, "Save the picture", size), kDarkGround));

    auto* cut = MakeLabel<TRdLabel>(host, "A caption longer than the label is wide", size);
    cut->SetEllipsisPosition(TRdCustomLabel::epEndEllipsis);
    section.Add("ellipsis at the end", OnGround(cut, kDarkGround));

    auto* path = MakeLabel<TRdLabel>(host, "/home/user/Pictures/2026/screenshot.png", size);
    path->SetEllipsisPosition(TRdCustomLabel::epPathEllipsis);
    section.Add("ellipsis in a path", OnGround(path, kDarkGround));

    auto* wrapped = MakeLabel<TRdLabel>(host, "A caption that wraps onto a second line", size);
    wrapped->SetWordWrap(true);
    wrapped->SetAlignment(TRdCustomLabel::taCenter);
    section.Add("word wrap, centred", OnGround(wrapped, kDarkGround));

    auto* fitted = MakeLabel<TRdLabel>(host, "Fitted to its text", size);
    fitted->SetAutoSize(true);
    section.Add("fitted to its text", OnGround(fitted, kDarkGround));

    auto* disabled = MakeLabel<TRdLabel>(host, "Disabled", size);
    disabled->setEnabled(false);
    section.Add("disabled", OnGround(disabled, kDarkGround));
    section.NewRow();
}

void AddMarkup(TGallerySection& section) {
    QWidget* host = section.Host();
    const QSize size = Scaled(QSize(190, 60));
    section.Add(
        "markup: styles",
        OnGround(MakeLabel<TRdHtmLabel>(host,
                                        "<b>bold</b> <i>italic</i> <u>under</u> <s>struck</s><br>"
                                        "x<sup>2</sup> H<sub>2</sub>O &amp; &lt;tags&gt;",
                                        size),
                 kDarkGround));
    section.Add("markup: fonts and colours",
                OnGround(MakeLabel<TRdHtmLabel>(host,
                                                "<font color=\"#5AA9FF\">blue</font> "
                                                "<font color=clRed size=4>larger red</font><br>"
                                                "<span bgcolor=\"#2E78D2\">on a ground</span>",
                                                size),
                         kDarkGround));
    section.Add("markup: link and list",
                OnGround(MakeLabel<TRdHtmLabel>(
                             host, "<a href=\"help\">a link</a><ul><li>one<li>two</ul>", size),
                         kDarkGround));
    section.Add("markup: unknown tags skipped",
                OnGround(MakeLabel<TRdHtmLabel>(host, "<blink>shown</blink> <x y=1>plain", size),
                         kDarkGround));
    section.NewRow();
}

TRdEdit* Edit(QWidget* parent, const QString& text) {
    auto* edit = new TRdEdit(parent);
    ScaleFonts(edit);
    edit->resize(Scaled(QSize(200, 24)));
    edit->ImageOption()->Rect().Set(Scaled(4), Scaled(4), Scaled(4), Scaled(4),
                                    TSuperStretchMode::sdmStretch);
    edit->ImageNormal()->SetText("imgname=images/input_normal.png");
    edit->ImageOver()->SetText("imgname=images/input_over.png");
    edit->FontNormal()->SetColor(SkinColor("text_color.cl_text_b"));
    edit->setText(text);
    edit->setCursorPosition(0);
    return edit;
}

void AddEdits(TGallerySection& section) {
    QWidget* host = section.Host();
    const QString path = "/home/user/Pictures";
    section.Add("edit", OnGround(Edit(host, path), kDarkGround));
    auto* over = Edit(host, path);
    HoverAt(over, over->rect().center());
    section.Add("edit under the mouse", OnGround(over, kDarkGround));
    auto* selected = Edit(host, path);
    selected->setSelection(6, 4);
    section.Add("edit, text selected", OnGround(selected, kDarkGround));
    auto* error = Edit(host, "/nowhere");
    error->SetErrorMode(true);
    section.Add("edit in error", OnGround(error, kDarkGround));
    auto* disabled = Edit(host, path);
    disabled->setEnabled(false);
    section.Add("edit disabled", OnGround(disabled, kDarkGround));
    section.Add("edit empty", OnGround(Edit(host, {}), kDarkGround));
    section.NewRow();
}

TRdProgressBar* Progress(QWidget* parent, int position) {
    auto* bar = new TRdProgressBar(parent);
    bar->resize(Scaled(QSize(200, 10)));
    bar->ImgBackground()->SetText("imgname=[Upload_bg]");
    bar->ImgBar()->SetText("imgname=[Upload_bar]");
    bar->SetMax(100);
    bar->SetPosition(position);
    return bar;
}

}  // namespace

void AddLabelSection(TGalleryPage& page) {
    TGallerySection& section = page.AddSection(
        "Labels, edit and progress bar (TRdLabel, TRdHtmLabel, TRdEdit, TRdProgressBar)");
    AddLabels(section);
    AddMarkup(section);
    AddEdits(section);
    for (int position : {0, 35, 100})
        section.Add(QString("progress %1%").arg(position),
                    OnGround(Progress(section.Host(), position), kDarkGround));
}

}  // namespace qpt
