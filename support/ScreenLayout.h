#pragma once

#include <QList>
#include <QRect>

namespace qpt {

// The monitors as the program's windows see them, so that the rules that
// place windows can be tried against screens that are not there.
struct TScreenLayout {
    QRect primary;
    QList<QRect> monitors;  // in the order the system lists them
    QRect desktop;          // the union of all monitors
};

// Reads the screens of the running application.
TScreenLayout CurrentScreenLayout();

}  // namespace qpt
