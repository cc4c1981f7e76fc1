#include "app/session/FirstPaint.h"

#include <QPointer>
#include <QTimer>
#include <utility>
#include <vector>

namespace qpt {

namespace {

struct TWaitingWork {
    QPointer<QObject> context;
    std::function<void()> work;
};

bool painted = false;
bool awaited = false;

std::vector<TWaitingWork>& Waiting() {
    static std::vector<TWaitingWork> waiting;
    return waiting;
}

}  // namespace

void AfterFirstPaint(QObject* context, std::function<void()> work) {
    if (painted)
        QTimer::singleShot(0, context, std::move(work));
    else
        Waiting().push_back({context, std::move(work)});
}

void AwaitFirstPaint() {
    awaited = true;
}

void SetUpAfterFirstPaint(QObject* context, std::function<void()> work) {
    if (awaited && !painted)
        AfterFirstPaint(context, std::move(work));
    else
        work();
}

void FirstPaintDone() {
    if (painted) return;
    painted = true;
    for (TWaitingWork& waiting : Waiting())
        if (waiting.context) QTimer::singleShot(0, waiting.context.data(), std::move(waiting.work));
    Waiting().clear();
}

}  // namespace qpt
