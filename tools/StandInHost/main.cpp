// A stand-in for the screenshot host: it hands a picture over to QptPin
// exactly as the host does, owns a window by which QptPin finds it, prints
// the notices QptPin sends back, and ends with QptPin. It is the program's
// demo and the driver of the end-to-end tests.
#include <QApplication>
#include <QFileInfo>
#include <QScreen>
#include <QTimer>
#include <cstdio>

#include "DemoChooser.h"
#include "HandOverWriter.h"
#include "HostMainWindow.h"
#include "HostOptions.h"
#include "PinRun.h"

using namespace qpt::standin;

namespace {

void Say(const QString& text) {
    std::printf("%s\n", qPrintable(text));
    std::fflush(stdout);
}

void TakeScreenshotLater(const HostOptions& options, PinRun* run) {
    QTimer::singleShot(options.screenshotAfterMs, [options, run] {
        const QImage shot = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
        if (shot.save(options.screenshot, "PNG"))
            Say("screenshot: " + QFileInfo(options.screenshot).absoluteFilePath());
        else
            Say("screenshot could not be written to " + options.screenshot);
        run->Close();
    });
}

// Pins the one picture the options name and ends with QptPin.
int PinOnce(QApplication& app, const HostOptions& options) {
    QImage picture;
    QRect rect;
    if (!TakePicture(options, &picture, &rect)) {
        std::fprintf(stderr, "StandInHost: no picture to pin\n");
        return 2;
    }
    HostMainWindow window(HostMainWindow::Kind::kStandIn);
    PlaceInCorner(&window);
    window.ShowAndPublish();
    NoticePrinter printer;
    app.installNativeEventFilter(&printer);

    PinRun run(options.program);
    QObject::connect(&run, &PinRun::Ended, [&](int code, const QString& how) {
        Say(how);
        app.exit(options.screenshot.isEmpty() ? code : 0);
    });
    Say(QStringLiteral("pinning %1x%2 at %3,%4")
            .arg(rect.width())
            .arg(rect.height())
            .arg(rect.x())
            .arg(rect.y()));
    if (const QString error = run.Start(picture, rect); !error.isEmpty()) {
        std::fprintf(stderr, "StandInHost: %s\n", qPrintable(error));
        return 2;
    }
    if (!options.screenshot.isEmpty()) TakeScreenshotLater(options, &run);
    return app.exec();
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", QByteArray("xcb"));
    qputenv("QT_ENABLE_HIGHDPI_SCALING", QByteArray("0"));
    QApplication app(argc, argv);
    const HostOptions options = ParseHostOptions(app.arguments());
    if (!options.error.isEmpty()) {
        std::fprintf(stderr, "%s\n%s", qPrintable(options.error), qPrintable(HostUsage()));
        return 2;
    }
    if (!options.choose) return PinOnce(app, options);
    DemoChooser demo(options);
    demo.Show();
    return app.exec();
}
