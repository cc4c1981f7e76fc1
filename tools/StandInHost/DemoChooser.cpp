#include "DemoChooser.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <cstdio>

#include "HandOverWriter.h"
#include "RegionPicker.h"

namespace qpt::standin {

namespace {

// Long enough for a compositor to take the demo's window off the screen
// before the screen is grabbed.
constexpr int kHideBeforeGrabMs = 250;

}  // namespace

DemoChooser::DemoChooser(const HostOptions& options)
    : options_(options),
      run_(options.program),
      printer_([this](int wParam, int lParam) { Noticed(wParam, lParam); }) {
    qApp->installNativeEventFilter(&printer_);
    connect(&window_, &HostMainWindow::PinSampleAsked, this, &DemoChooser::PinSample);
    connect(&window_, &HostMainWindow::PinRegionAsked, this, &DemoChooser::PinRegion);
    connect(&run_, &PinRun::Ended, this, &DemoChooser::Ended);
}

void DemoChooser::Show() {
    PlaceInCorner(&window_);
    window_.ShowAndPublish();
}

void DemoChooser::PinSample() {
    QImage picture;
    QRect rect;
    HostOptions sample = options_;
    sample.grab.reset();
    if (!TakePicture(sample, &picture, &rect)) {
        window_.SetStatus("The sample picture is missing beside the demo.");
        return;
    }
    Pin(picture, rect);
}

void DemoChooser::PinRegion() {
    window_.SetPinning(true);
    window_.hide();
    QTimer::singleShot(kHideBeforeGrabMs, this, &DemoChooser::GrabAndPick);
}

void DemoChooser::GrabAndPick() {
    QScreen* screen = QGuiApplication::primaryScreen();
    auto* picker = new RegionPicker(screen->grabWindow(0).toImage(), screen->geometry());
    connect(picker, &RegionPicker::Picked, this, &DemoChooser::Pin);
    connect(picker, &RegionPicker::Cancelled, this, [this] {
        window_.ShowAndPublish();
        window_.SetPinning(false);
    });
    picker->Open();
}

void DemoChooser::Pin(const QImage& picture, const QRect& rect) {
    // QptPin looks for the host's window once, as it starts.
    window_.ShowAndPublish();
    window_.SetPinning(true);
    lastNotice_.clear();
    std::printf("pinning %dx%d at %d,%d\n", rect.width(), rect.height(), rect.x(), rect.y());
    std::fflush(stdout);
    if (const QString error = run_.Start(picture, rect); !error.isEmpty()) {
        window_.SetStatus("QptPin could not start: " + error);
        window_.SetPinning(false);
        return;
    }
    window_.SetStatus("QptPin shows the picture where it was taken. Click it for the toolbar.");
}

void DemoChooser::Noticed(int wParam, int lParam) {
    lastNotice_ = DescribeNotice(wParam, lParam);
}

void DemoChooser::Ended(int code, const QString& how) {
    std::printf("%s\n", qPrintable(how));
    std::fflush(stdout);
    QString text = lastNotice_;
    if (text.isEmpty())
        text = code == 0 ? QStringLiteral("The picture was thrown away.") : how + ".";
    window_.SetStatus(text + "\nPin another, or close this window.");
    window_.SetPinning(false);
}

}  // namespace qpt::standin
