#pragma once

#include <QEvent>

class QObject;

namespace qpt {

// The numbered messages the forms send one another. A posted one reaches its
// receiver only after the sender has returned to the event loop.
enum TSessionMessageId : int {
    // To the toolbar: the share has ended (wParam 1 after a share that tells
    // the host).
    kMsgShareFinished = 1128,
    // To the pinned window: one zoom step was taken (wParam 1 up, 0 down).
    kMsgZoomStep = 1131,
    // To the toolbar: reset the tool buttons (wParam 1).
    kMsgResetToolButtons = 1132,
};

class TSessionMessage : public QEvent {
public:
    TSessionMessage(int id, int wParam, int lParam)
        : QEvent(EventType()), Id(id), WParam(wParam), LParam(lParam) {}

    // The one event type that carries every session message.
    static QEvent::Type EventType();

    const int Id;
    const int WParam;
    const int LParam;
};

// Queued: the receiver handles it once the event loop is reached again.
void PostSessionMessage(QObject* to, int id, int wParam, int lParam);
// Handled before the call returns.
void SendSessionMessage(QObject* to, int id, int wParam, int lParam);

// The message carried by an event, or null for any other event.
const TSessionMessage* AsSessionMessage(const QEvent* event);

}  // namespace qpt
