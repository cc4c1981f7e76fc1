#include "app/ProcessEntry.h"

namespace qpt {

int RunProcess(int, char**) {
    return 0;
}

}  // namespace qpt
