#pragma once

#include "output/holder/HeldContent.h"

namespace qpt::holder {

// Encodes the picture's PNG on a thread of its own, so that the holder
// answers every other request meanwhile; when the PNG is settled (made, or
// failed), readyFd becomes readable.
void StartPngEncoding(HeldContent& content, int readyFd);

}  // namespace qpt::holder
