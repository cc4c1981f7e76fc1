#include "skin/RdHtmLabelLink.h"

namespace qpt {

TRdHtmLabelLink::TRdHtmLabelLink(QObject* parent)
    : QObject(parent), font_(new TRdFont(this)), fontHover_(new TRdFont(this)) {
    connect(font_, &TRdFont::Changed, this, &TRdHtmLabelLink::Changed);
    connect(fontHover_, &TRdFont::Changed, this, &TRdHtmLabelLink::Changed);
}

void TRdHtmLabelLink::TakeFont(const TRdFont& labelFont) {
    const std::pair<TRdFont*, quint32> fonts[] = {{font_, kLinkColor}, {fontHover_, kHoverColor}};
    for (const auto& [font, color] : fonts) {
        font->BeginUpdate();
        font->Assign(labelFont);
        font->SetColor(color);
        font->SetStyle(font->Style() | TRdFont::fsUnderline);
        font->EndUpdate();
    }
}

}  // namespace qpt
