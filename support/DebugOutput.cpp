#include "support/DebugOutput.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace qpt {

void DebugOutput(const QString& text) {
    const char* flag = std::getenv("QPT_DEBUG");
    if (!flag || std::strcmp(flag, "1") != 0) return;
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    std::fflush(stderr);
}

}  // namespace qpt
