#pragma once

#include <QString>

namespace qpt {

// A diagnostic line for developers: written to standard error only while the
// environment variable QPT_DEBUG is "1", so users never see it.
void DebugOutput(const QString& text);

}  // namespace qpt
