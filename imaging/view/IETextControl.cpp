#include "imaging/view/IETextControl.h"

#include <QTextBlock>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <cmath>

namespace qpt {

QColor IETextQColor(TColor color) {
    return QColor(ColorR(color), ColorG(color), ColorB(color));
}

TIETextControl::TIETextControl(QWidget* parent) : QTextEdit(parent) {
    setAcceptRichText(false);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    hide();
}

void TIETextControl::Load(const TIETextLayer& layer, double zoom, const QRect& place) {
    // The same font as the finished layer, so that the text keeps its size
    // when editing ends, on screens of any resolution.
    setFont(IETextQFont(layer.Font, zoom / 100.0));

    QPalette palette = this->palette();
    palette.setColor(QPalette::Text, IETextQColor(layer.Font.Color));
    const bool transparent = layer.FillColor == clNone;
    // With no fill the picture must show through, as it will under the text.
    palette.setColor(QPalette::Base,
                     transparent ? QColor(Qt::transparent) : IETextQColor(layer.FillColor));
    setPalette(palette);
    setAutoFillBackground(!transparent);
    viewport()->setAutoFillBackground(!transparent);

    setLineWrapMode(layer.WordWrap ? QTextEdit::WidgetWidth : QTextEdit::NoWrap);
    document()->setDocumentMargin(kMargin);
    setPlainText(layer.Text);
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    QTextBlockFormat spacing;
    spacing.setLineHeight(kLineGap, QTextBlockFormat::LineDistanceHeight);
    cursor.mergeBlockFormat(spacing);
    cursor.movePosition(QTextCursor::End);
    setTextCursor(cursor);

    setGeometry(place);
    show();
    raise();
    setFocus(Qt::OtherFocusReason);
}

}  // namespace qpt
