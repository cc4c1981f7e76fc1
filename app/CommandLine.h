#pragma once

#include <QStringList>

namespace qpt {

// The three switches are looked for in three different ways, on purpose.

// "/QPTMain" counts in any argument, the program's own path included.
bool HasQptMainSwitch(const QStringList& arguments);

// "/testbugreport" and "/Scale" count only as the first argument after the
// program's path.
bool FirstArgumentIs(const QStringList& arguments, const QString& switchText);

QStringList ArgumentsOf(int argc, char** argv);

}  // namespace qpt
