#include "app/CrashReport.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <exception>

#include "support/Paths.h"
#include "support/ProcessExit.h"

namespace qpt {

namespace {

QString g_version = QStringLiteral("1.0.0.0");

QString ReportLine(const QString& message) {
    QString flat = message;
    flat.replace('\n', ' ').replace('\r', ' ');
    return QDateTime::currentDateTime().toString("yyyy-MM-dd hh:mm:ss.zzz") +
           QStringLiteral("\tQptPin %1\t%2\n").arg(g_version, flat);
}

void StartReportSender(const QString& reportFile, const QString& message) {
    const QString sender = ProgramFolder() + "SendBugReport";
    const QFileInfo info(sender);
    if (!info.isFile() || !info.isExecutable()) return;
    QProcess::startDetached(
        sender, {"/AntRun", "/App", "QptPin", "/Exception", message, "/files", reportFile});
}

QString DescribeCurrentException() {
    try {
        if (auto current = std::current_exception()) std::rethrow_exception(current);
    } catch (const std::exception& e) {
        return QString::fromLocal8Bit(e.what());
    } catch (...) {
    }
    return QStringLiteral("unhandled exception");
}

}  // namespace

void SetBugReportVersion(const QString& version) {
    g_version = version;
}

void ReportCrash(const QString& message) {
    const QString folder = GetTempFolder();
    if (folder.isEmpty()) return;
    const QString reportFile = folder + "bugreport_new.txt";
    QFile file(reportFile);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        file.write(ReportLine(message).toUtf8());
        file.close();
    }
    StartReportSender(reportFile, message);
}

void CrashOnCurrentException() {
    ReportCrash(DescribeCurrentException());
    ProcessExit(kCrashExitCode);
}

void InstallCrashHandler() {
    std::set_terminate(CrashOnCurrentException);
}

}  // namespace qpt
