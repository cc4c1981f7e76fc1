#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QSize>
#include <QString>
#include <QStringList>
#include <cstdint>

namespace qpt {

// Where a caption too long for its label loses characters. The numbers are
// those the forms store.
enum class TEllipsisPosition : uint8_t {
    epNone = 0,
    epPathEllipsis = 1,
    epEndEllipsis = 2,
    epWordEllipsis = 3
};

struct TLabelTextOptions {
    bool wordWrap = false;
    TEllipsisPosition ellipsis = TEllipsisPosition::epNone;
    bool showAccelChar = true;
    // Also starts a new line; a null character means none.
    QChar wrapChar;
};

// A caption broken into the lines a label draws.
struct TLabelText {
    QStringList lines;
    // The accelerator character to underline, or -1 for none.
    int accelLine = -1;
    int accelPos = -1;
    int lineHeight = 0;
    QSize size;
    // Characters or whole lines were left out.
    bool cut = false;
};

// Lays the caption out for a text area `width` wide (0 or less: no limit)
// and, when word wrap cuts with an ellipsis, `maxHeight` high (0 or less: no
// limit; at least one line is always kept). "&x" marks an accelerator when
// they count, "&&" stands for "&". A caption with nothing to show is measured
// as one blank, so that an empty label keeps the height of a line.
TLabelText LayoutLabelText(const QString& caption, const QFont& font, int width, int maxHeight,
                           const TLabelTextOptions& options);

// `text` cut to `width` pixels so that it ends in "..."; with `atWord` the
// cut falls between words when one fits. With `always` the dots are added
// even to text that fits.
QString ElideText(const QString& text, const QFontMetrics& metrics, int width, bool atWord,
                  bool always);

}  // namespace qpt
