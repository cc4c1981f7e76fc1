#include "skin/RdLog.h"

#include <atomic>

#include "support/DebugOutput.h"

namespace qpt {

namespace {
std::atomic<bool> gRdLogEnabled{false};
}

bool RdLogEnabled() {
    return gRdLogEnabled.load(std::memory_order_relaxed);
}

void SetRdLogEnabled(bool on) {
    gRdLogEnabled.store(on, std::memory_order_relaxed);
}

void RdLog(const QString& line) {
    if (RdLogEnabled()) DebugOutput(line);
}

}  // namespace qpt
