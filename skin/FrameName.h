#pragma once

#include <QString>

namespace qpt {

// Puts the frame number into the first "%d" of a frame name pattern (with an
// optional width such as "%02d"). Patterns come from skin files, so nothing
// else in them is ever read as a format directive.
QString FrameName(const QString& pattern, int frame);

}  // namespace qpt
