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

// The process is about to show its picture: from now on, set-up asked for
// through SetUpAfterFirstPaint waits for that paint.
void AwaitFirstPaint();

// Set-up a hidden form can do without until the picture is on the screen
// (its controls, fonts and skin pictures). It waits for the first paint only
// when the process awaits one, and runs at once otherwise: a form made on its
// own has no picture to wait for. A form that is shown or asked about first
// must do it then itself.
void SetUpAfterFirstPaint(QObject* context, std::function<void()> work);

// The pinned window has painted; called by it once.
void FirstPaintDone();

}  // namespace qpt
