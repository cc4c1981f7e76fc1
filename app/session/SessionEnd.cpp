#include "app/session/SessionEnd.h"

#include <QCoreApplication>

#include "support/DebugOutput.h"
#include "support/ProcessExit.h"
#include "support/ProductStat.h"

namespace qpt {

void EndSession(const QString& usageCode) {
    if (!usageCode.isEmpty()) SendUsageCode(usageCode);
    DebugOutput(QStringLiteral("QptPin: session ends"));
    ProcessExit(0);
}

void CloseSession() {
    DebugOutput(QStringLiteral("QptPin: session closed"));
    QCoreApplication::exit(0);
}

}  // namespace qpt
