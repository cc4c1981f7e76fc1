#include "PinRun.h"

#include <QCoreApplication>
#include <QDir>

#include "HandOverWriter.h"

namespace qpt::standin {

PinRun::PinRun(const QString& program, QObject* parent)
    : QObject(parent),
      program_(program.isEmpty() ? QDir(QCoreApplication::applicationDirPath()).filePath("QptPin")
                                 : program) {
    process_.setProcessChannelMode(QProcess::ForwardedChannels);
    connect(&process_, &QProcess::finished, this, &PinRun::Finished);
}

PinRun::~PinRun() {
    disconnect(&process_, nullptr, this, nullptr);
    Close();
    process_.waitForFinished(2000);
}

QString PinRun::Start(const QImage& picture, const QRect& rect) {
    if (IsRunning()) return QStringLiteral("QptPin is still running");
    if (const QString error = WriteHandOver(picture, rect); !error.isEmpty()) return error;
    closedByHost_ = false;
    process_.start(program_, {"/QPTMain"});
    if (!process_.waitForStarted()) return "cannot start " + program_;
    return {};
}

void PinRun::Close() {
    if (!IsRunning()) return;
    closedByHost_ = true;
    process_.terminate();
}

void PinRun::Finished(int code, QProcess::ExitStatus status) {
    QString how;
    if (closedByHost_)
        how = QStringLiteral("QptPin closed by the host");
    else
        how = QStringLiteral("QptPin ended with code %1%2")
                  .arg(code)
                  .arg(status == QProcess::CrashExit ? " (crashed)" : "");
    emit Ended(status == QProcess::CrashExit ? -1 : code, how);
}

}  // namespace qpt::standin
