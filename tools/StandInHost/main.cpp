// A stand-in for the screenshot host: it hands a picture over to QptPin
// exactly as the host does, owns a window by which QptPin finds it, prints
// the notices QptPin sends back, and ends with QptPin. It is the program's
// demo and the driver of the end-to-end tests.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QScreen>
#include <QTimer>
#include <cstdio>

#include "HandOverWriter.h"
#include "HostMainWindow.h"
#include "HostOptions.h"

using namespace qpt::standin;

namespace {

void Say(const QString& text) {
    std::printf("%s\n", qPrintable(text));
    std::fflush(stdout);
}

QString BesideHost(const QString& relative) {
    return QDir(QCoreApplication::applicationDirPath()).filePath(relative);
}

// The picture and the place it was "captured" at.
bool TakePicture(const HostOptions& options, QImage* picture, QRect* rect) {
    QScreen* screen = QGuiApplication::primaryScreen();
    if (options.grab) {
        *picture = screen
                       ->grabWindow(0, options.grab->x(), options.grab->y(), options.grab->width(),
                                    options.grab->height())
                       .toImage();
        *rect = *options.grab;
        return !picture->isNull();
    }
    const QString file =
        options.picture.isEmpty() ? BesideHost("sample-screenshot.svg") : options.picture;
    *picture = LoadPicture(file);
    if (picture->isNull()) return false;
    QRect placed(QPoint(), picture->size());
    placed.moveCenter(screen->availableGeometry().center());
    if (options.at) placed.moveTopLeft(*options.at);
    *rect = placed;
    return true;
}

void TakeScreenshotLater(const HostOptions& options, QProcess* qptpin) {
    QTimer::singleShot(options.screenshotAfterMs, [options, qptpin] {
        const QImage shot = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
        if (shot.save(options.screenshot, "PNG"))
            Say("screenshot: " + QFileInfo(options.screenshot).absoluteFilePath());
        else
            Say("screenshot could not be written to " + options.screenshot);
        // Noted, so that the end this causes is not reported as a crash.
        qptpin->setProperty("closedByHost", true);
        qptpin->terminate();
    });
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
    QImage picture;
    QRect rect;
    if (!TakePicture(options, &picture, &rect)) {
        std::fprintf(stderr, "StandInHost: no picture to pin\n");
        return 2;
    }
    if (const QString error = WriteHandOver(picture, rect); !error.isEmpty()) {
        std::fprintf(stderr, "StandInHost: %s\n", qPrintable(error));
        return 2;
    }
    Say(QStringLiteral("pinning %1x%2 at %3,%4")
            .arg(rect.width())
            .arg(rect.height())
            .arg(rect.x())
            .arg(rect.y()));

    HostMainWindow window;
    const QRect work = QGuiApplication::primaryScreen()->availableGeometry();
    window.adjustSize();
    window.move(work.right() - window.width() - 20, work.bottom() - window.height() - 40);
    window.ShowAndPublish();
    NoticePrinter printer;
    app.installNativeEventFilter(&printer);

    QProcess qptpin;
    qptpin.setProcessChannelMode(QProcess::ForwardedChannels);
    QObject::connect(&qptpin, &QProcess::finished, [&](int code, QProcess::ExitStatus status) {
        if (qptpin.property("closedByHost").toBool())
            Say(QStringLiteral("QptPin closed after the screenshot"));
        else
            Say(QStringLiteral("QptPin ended with code %1%2")
                    .arg(code)
                    .arg(status == QProcess::CrashExit ? " (crashed)" : ""));
        app.exit(options.screenshot.isEmpty() ? code : 0);
    });
    const QString program =
        options.program.isEmpty() ? BesideHost("../program/QptPin") : options.program;
    qptpin.start(program, {"/QPTMain"});
    if (!qptpin.waitForStarted()) {
        std::fprintf(stderr, "StandInHost: cannot start %s\n", qPrintable(program));
        return 2;
    }
    if (!options.screenshot.isEmpty()) TakeScreenshotLater(options, &qptpin);
    return app.exec();
}
