#include "app/session/SessionMessages.h"

#include <QCoreApplication>

namespace qpt {

QEvent::Type TSessionMessage::EventType() {
    static const auto type = QEvent::Type(QEvent::registerEventType());
    return type;
}

void PostSessionMessage(QObject* to, int id, int wParam, int lParam) {
    if (to) QCoreApplication::postEvent(to, new TSessionMessage(id, wParam, lParam));
}

void SendSessionMessage(QObject* to, int id, int wParam, int lParam) {
    TSessionMessage message(id, wParam, lParam);
    if (to) QCoreApplication::sendEvent(to, &message);
}

const TSessionMessage* AsSessionMessage(const QEvent* event) {
    if (!event || event->type() != TSessionMessage::EventType()) return nullptr;
    return static_cast<const TSessionMessage*>(event);
}

}  // namespace qpt
