#include "skin/ButtonCheckBox.h"

#include <QFontMetrics>

#include "skin/RdGraphic.h"

namespace qpt {

namespace {

using T = TImageButtonTypes;

bool Present(const TRdGraphic* graphic) {
    return graphic && !graphic->Empty();
}

int CheckBoxX(const QRect& client, const QRect& text, int width, const TCheckBoxPlacement& p) {
    if (p.AlignXByText) {
        if (p.AlignX == T::taLeftJustify) return text.left() - width - p.Offset;
        if (p.AlignX == T::taRightJustify) return text.right() + 1 + p.Offset;
        return text.left() + (text.width() - width) / 2 + p.Offset;
    }
    if (p.AlignX == T::taLeftJustify) return client.left() + p.Offset;
    if (p.AlignX == T::taRightJustify) return client.right() + 1 - width - p.Offset;
    return client.left() + (client.width() - width) / 2 + p.Offset;
}

// The line of the caption's first row the box is centred on.
int FontLineY(const QRect& text, const QFont& font, TFontLine line) {
    const QFontMetrics metrics(font);
    if (line == T::flTopLine) return text.top() + metrics.ascent() - metrics.capHeight();
    if (line == T::flBaseLine) return text.top() + metrics.ascent();
    return text.top() + metrics.height() / 2;
}

int CheckBoxY(const QRect& client, const QRect& text, int height, const QFont& font,
              const TCheckBoxPlacement& p) {
    if (p.AlignYByFont) return FontLineY(text, font, p.FontLine) - height / 2 + p.OffsetY;
    if (p.AlignY == T::tlTop) return text.top() + p.OffsetY;
    if (p.AlignY == T::tlBottom) return text.bottom() + 1 - height - p.OffsetY;
    const QRect& reference = p.AlignXByText ? text : client;
    return reference.top() + (reference.height() - height) / 2 + p.OffsetY;
}

}  // namespace

QRect CheckBoxRect(const QRect& client, const QRect& text, const QSize& size, const QFont& font,
                   const TCheckBoxPlacement& placement) {
    return QRect(CheckBoxX(client, text, size.width(), placement),
                 CheckBoxY(client, text, size.height(), font, placement), size.width(),
                 size.height());
}

int NextCheckState(int state) {
    return state == 1 ? 0 : 1;
}

TRdGraphic* PickCheckBoxPicture(TRdGraphic* plain, TRdGraphic* hover, TRdGraphic* grayed,
                                bool enabled, bool hot) {
    if (!enabled && Present(grayed)) return grayed;
    if (enabled && hot && Present(hover)) return hover;
    return plain;
}

}  // namespace qpt
