// Any bytes as the caption of a markup label: the reader must keep every
// number within its bounds, point every link at a link it read, and never
// hand out an empty stretch of text, whatever the tags, nesting or sizes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "skin/HtmMarkup.h"

using namespace qpt;

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

void CheckItem(const THtmItem& item, size_t links) {
    Require(item.style.link >= -1 && item.style.link < int(links));
    Require(item.style.sizePt == 0 ||
            (item.style.sizePt >= kHtmMinFontPt && item.style.sizePt <= kHtmMaxFontPt));
    Require(item.width >= 0 && item.width <= kHtmMaxPictureSide);
    Require(item.height >= 0 && item.height <= kHtmMaxPictureSide);
    Require(item.block.indent >= 0 && item.block.indent <= 2000);
    Require(item.style.face.size() <= 64);
    if (item.kind == THtmItem::TKind::Text) Require(!item.text.isEmpty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString markup = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    const THtmDocument document = ParseHtm(markup);
    // Every item comes from at least one character of the markup.
    Require(document.items.size() <= size_t(markup.size()) + 1);
    for (const THtmItem& item : document.items)
        CheckItem(item, document.links.size());
    Require(HtmPlainText(document).size() <= markup.size() * 3 + 16);
    return 0;
}
