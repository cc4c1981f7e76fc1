#pragma once

#include <QAbstractNativeEventFilter>
#include <QWidget>
#include <cstdint>
#include <functional>

class QLabel;
class QPushButton;

namespace qpt::standin {

// The host's main window, found by QptPin through its class and title. As
// the demo's window it also offers what to pin and tells what came back.
class HostMainWindow : public QWidget {
    Q_OBJECT
public:
    enum class Kind { kStandIn, kDemo };
    explicit HostMainWindow(Kind kind);

    // Makes the window exist on the server with its class, so that a QptPin
    // started next finds it.
    void ShowAndPublish();
    void SetStatus(const QString& text);
    // While a picture is pinned the demo offers no other.
    void SetPinning(bool pinning);

signals:
    void PinSampleAsked();
    void PinRegionAsked();

private:
    QLabel* status_ = nullptr;
    QPushButton* sample_ = nullptr;
    QPushButton* region_ = nullptr;
};

// In the lower right corner of the primary screen's work area, where the
// sample picture, pinned in the middle, leaves it in sight.
void PlaceInCorner(QWidget* window);

// What a notice from QptPin means, in a sentence for the demo's window.
QString DescribeNotice(int wParam, int lParam);

// Prints each notice that QptPin sends to the window, and hands it on.
class NoticePrinter : public QAbstractNativeEventFilter {
public:
    explicit NoticePrinter(std::function<void(int wParam, int lParam)> onNotice = {});
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    std::uint32_t noticeAtom_ = 0;
    std::function<void(int, int)> onNotice_;
};

}  // namespace qpt::standin
