#include "tests/common/ProgramRun.h"

#include <gtest/gtest.h>

#include <QProcess>

namespace qpt::testing {

QProcessEnvironment ChangedEnvironment(const EnvironmentChanges& changes) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : changes) {
        if (value.isEmpty())
            environment.remove(name);
        else
            environment.insert(name, value);
    }
    return environment;
}

EnvironmentChanges OffscreenWithoutDisplay() {
    return {{"DISPLAY", ""}, {"QT_QPA_PLATFORM", "offscreen"}};
}

ProgramRun RunProgram(const QString& program, const QStringList& arguments,
                      const EnvironmentChanges& changes, const QString& folder) {
    constexpr int kTimeoutMs = 20000;
    QProcess process;
    process.setProcessEnvironment(ChangedEnvironment(changes));
    if (!folder.isEmpty()) process.setWorkingDirectory(folder);
    process.start(program, arguments);
    ProgramRun run;
    if (!process.waitForStarted()) {
        ADD_FAILURE() << "could not start " << program.toStdString() << ": "
                      << process.errorString().toStdString();
        return run;
    }
    run.finished = process.waitForFinished(kTimeoutMs);
    if (!run.finished) {
        ADD_FAILURE() << "still running after " << kTimeoutMs << " ms: " << program.toStdString();
        process.kill();
        process.waitForFinished();
    }
    run.crashed = run.finished && process.exitStatus() == QProcess::CrashExit;
    if (run.finished && !run.crashed) run.exitCode = process.exitCode();
    run.output = process.readAllStandardOutput();
    run.errors = QString::fromLocal8Bit(process.readAllStandardError());
    return run;
}

}  // namespace qpt::testing
