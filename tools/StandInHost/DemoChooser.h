#pragma once

#include <QObject>

#include "HostMainWindow.h"
#include "HostOptions.h"
#include "PinRun.h"

namespace qpt::standin {

// The demo as started from the desktop menu: a window that pins the sample
// or a region of the screen, one picture at a time, and tells what came back
// from each; it ends when its window is closed.
class DemoChooser : public QObject {
public:
    explicit DemoChooser(const HostOptions& options);
    void Show();

private:
    void PinSample();
    void PinRegion();
    void GrabAndPick();
    void Pin(const QImage& picture, const QRect& rect);
    void Noticed(int wParam, int lParam);
    void Ended(int code, const QString& how);

    HostOptions options_;
    HostMainWindow window_{HostMainWindow::Kind::kDemo};
    PinRun run_;
    NoticePrinter printer_;
    QString lastNotice_;
};

}  // namespace qpt::standin
