#include "output/SidePlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include "app/session/SessionForms.h"

namespace qpt {

namespace {

int PrimaryScreenHeight() {
    const QScreen* primary = QGuiApplication::primaryScreen();
    return primary ? primary->geometry().height() : 0;
}

int DesktopTop() {
    QRect desktop;
    for (const QScreen* screen : QGuiApplication::screens())
        desktop = desktop.united(screen->geometry());
    return desktop.top();
}

}  // namespace

int SideBarTop(const QRect& toolbar, int barHeight, int pictureTop, int screenHeight,
               int desktopTop) {
    const int below = toolbar.top() + toolbar.height() + 2;
    const int above = toolbar.top() - barHeight - 2;
    if (toolbar.top() >= pictureTop) return below + barHeight <= screenHeight ? below : above;
    return above >= desktopTop ? above : below;
}

int ToolbarBackTop(const QRect& picture, int toolbarHeight, int screenHeight) {
    const int below = picture.top() + picture.height() + 2;
    if (below + toolbarHeight <= screenHeight) return below;
    const int above = picture.top() - toolbarHeight - 2;
    return above >= 0 ? above : picture.top() + 2;
}

void PlaceBesideToolbar(QWidget* bar) {
    if (!bar || !FormTools || !FormPinned) return;
    bar->move(FormTools->x(), SideBarTop(FormTools->frameGeometry(), bar->height(), FormPinned->y(),
                                         PrimaryScreenHeight(), DesktopTop()));
}

void PlaceToolbarBack() {
    if (!FormTools || !FormPinned) return;
    FormTools->move(FormTools->x(), ToolbarBackTop(FormPinned->frameGeometry(), FormTools->height(),
                                                   PrimaryScreenHeight()));
}

}  // namespace qpt
