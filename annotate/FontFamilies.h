#pragma once

#include <QStringList>

namespace qpt {

// The font families of the system as fontconfig lists them, sorted without
// regard to case and without repeats. Reading fontconfig's caches takes a
// while, so callers on the start-up path run it on a thread of their own.
QStringList SystemFontFamilies();

// The index of a family in the list, matched without regard to case; -1
// when the system lacks it.
int FamilyIndex(const QStringList& families, const QString& name);

}  // namespace qpt
