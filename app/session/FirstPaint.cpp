#include "app/session/FirstPaint.h"

#include <QTimer>
#include <vector>

namespace qpt {

namespace {

bool painted = false;

std::vector<std::function<void()>>& Waiting() {
    static std::vector<std::function<void()>> work;
    return work;
}

}  // namespace

void AfterFirstPaint(std::function<void()> work) {
    if (painted)
        QTimer::singleShot(0, std::move(work));
    else
        Waiting().push_back(std::move(work));
}

void FirstPaintDone() {
    if (painted) return;
    painted = true;
    for (std::function<void()>& work : Waiting())
        QTimer::singleShot(0, std::move(work));
    Waiting().clear();
}

}  // namespace qpt
