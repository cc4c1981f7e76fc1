#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace qpt::testing {

// Changes to the test's own environment for a program it starts: each pair
// sets a variable, or removes it when the value is empty.
using EnvironmentChanges = QList<QPair<QString, QString>>;

QProcessEnvironment ChangedEnvironment(const EnvironmentChanges& changes);

// No X display, and the offscreen platform for what needs one.
EnvironmentChanges OffscreenWithoutDisplay();

// How a program run to its end went. One that crashed, or was killed at the
// time-out (not finished), has no exit code (-1) and only what it wrote
// before.
struct ProgramRun {
    bool finished = false;
    bool crashed = false;
    int exitCode = -1;
    QByteArray output;
    QString errors;
};

// Runs a program in `folder` (empty: the test's own) and waits for its end;
// one that cannot start, or is still running after 20 s, fails the test (and
// is killed).
ProgramRun RunProgram(const QString& program, const QStringList& arguments,
                      const EnvironmentChanges& changes = {}, const QString& folder = {});

}  // namespace qpt::testing
