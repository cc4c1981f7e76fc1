#pragma once

#include <QAbstractNativeEventFilter>
#include <QLabel>
#include <cstdint>

namespace qpt::standin {

// The host's main window, found by QptPin through its class and title.
class HostMainWindow : public QLabel {
public:
    HostMainWindow();
    // Makes the window exist on the server with its class, so that a QptPin
    // started next finds it.
    void ShowAndPublish();
};

// Prints each notice that QptPin sends to the window.
class NoticePrinter : public QAbstractNativeEventFilter {
public:
    NoticePrinter();
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    std::uint32_t noticeAtom_ = 0;
};

}  // namespace qpt::standin
