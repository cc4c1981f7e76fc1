#include "app/FormSequence.h"

#include <cstdio>

#include "app/HandOver.h"
#include "support/ProcessExit.h"

namespace qpt {

bool CreateForms(const QStringList&) {
    const THandOver handOver = ReadHandOver();
    if (!HandOverPictureExists(handOver)) ProcessExit(0);
    std::fprintf(stderr, "QptPin: the pinned window is not built yet; nothing to show.\n");
    return false;
}

}  // namespace qpt
