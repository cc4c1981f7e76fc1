#pragma once

#include <QObject>
#include <functional>

namespace qpt {

// Work that the hidden forms need, but not before the picture is on the
// screen: it runs once the pinned window has painted for the first time,
// after that paint has gone out, in the order it was asked for. Asked for
// later, it runs at the next turn of the event loop. Work whose context
// object has gone by then is dropped.
void AfterFirstPaint(QObject* context, std::function<void()> work);

// The pinned window has painted; called by it once.
void FirstPaintDone();

}  // namespace qpt
