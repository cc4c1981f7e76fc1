#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <functional>
#include <vector>

#include "skin/HtmMarkup.h"

class QPainter;

namespace qpt {

// A piece of one item placed on a line.
struct THtmFragment {
    int item = 0;
    // Text items: the characters of this piece.
    QString text;
    QRect rect;
    int baseline = 0;
    int link = -1;
};

struct THtmLayout {
    std::vector<THtmFragment> fragments;
    int lines = 0;
    QSize size;
    // Something did not fit the width or the height.
    bool cut = false;
    // Per link: its text was cut by its line count or the height.
    std::vector<bool> linkCut;

    // The link under a point of the text area, or -1.
    int LinkAt(const QPoint& point) const;
};

struct THtmLayoutOptions {
    QFont font;
    // 0: no limit. A width makes text wrap (unless WordWrap is off), a
    // height cuts lines that do not fit, the last one kept ending in "...".
    int width = 0;
    int height = 0;
    int lineSpacing = 0;
    bool wordWrap = true;
    // The natural size of a picture; an empty size when there is none.
    std::function<QSize(const QString& source)> pictureSize;
    // The font a link starts from, when it has one of its own.
    std::function<QFont(int link)> linkFont;
};

// The font of a stretch: the base with the stretch's face, size and styles.
QFont HtmFont(const QFont& base, const THtmStyle& style);

THtmLayout LayoutHtm(const THtmDocument& document, const THtmLayoutOptions& options);

struct THtmLinkLook {
    QFont font;
    QColor color;
    QColor background;
};

struct THtmPaintContext {
    QColor textColor;
    int hoverLink = -1;
    std::function<THtmLinkLook(int link, bool hover)> linkLook;
    std::function<void(QPainter& painter, const QString& source, const QRect& rect)> drawPicture;
};

// Draws the laid-out items with the text area's top left at `origin`.
void PaintHtm(QPainter& painter, const THtmDocument& document, const THtmLayout& layout,
              const QPoint& origin, const THtmLayoutOptions& options,
              const THtmPaintContext& context);

}  // namespace qpt
