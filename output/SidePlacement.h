#pragma once

#include <QRect>

class QWidget;

namespace qpt {

// The toolbar stands next to the picture; the style bar or the path panel
// opens next to the toolbar, on the side away from the picture when there
// is room. Below is measured against the primary screen's height, above
// against the top of the whole desktop.

// The top of a bar opening beside the toolbar (screen coordinates).
int SideBarTop(const QRect& toolbar, int barHeight, int pictureTop, int screenHeight,
               int desktopTop);

// The top of the toolbar put back next to the picture: below it when the
// primary screen has room, else above it, else inside its top edge.
int ToolbarBackTop(const QRect& picture, int toolbarHeight, int screenHeight);

// The same on the session's forms: the bar takes the toolbar's left edge and
// its place beside it; the toolbar goes back next to the pinned picture.
// Nothing happens while a form is missing.
void PlaceBesideToolbar(QWidget* bar);
void PlaceToolbarBack();

}  // namespace qpt
