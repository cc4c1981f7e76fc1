#pragma once

#include <QTextEdit>

#include "imaging/IETextLayer.h"

namespace qpt {

// The in-place editor of a text layer: a plain multi-line editor laid
// exactly over the layer, showing the text as the layer will draw it at the
// view's zoom, so that typing looks like writing on the picture.
class TIETextControl : public QTextEdit {
    Q_OBJECT
public:
    explicit TIETextControl(QWidget* parent);

    // Takes text, font, colours and wrapping from the layer; zoom is the
    // view's percent.
    void Load(const TIETextLayer& layer, double zoom, const QRect& place);
    QString Text() const { return toPlainText(); }

    // Gaps between the frame and the text, and between lines, in pixels.
    static constexpr double kMargin = 3.0;
    static constexpr double kLineGap = 2.0;
};

// A TColor as a Qt colour.
QColor IETextQColor(TColor color);

}  // namespace qpt
