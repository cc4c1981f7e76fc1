#pragma once

namespace qpt::holder {

// The whole life of the clipboard holder: arguments as described in
// HolderProtocol.h. Returns only when the holder must not go on; the regular
// end leaves the process at once.
int RunHolder(int argc, char** argv);

}  // namespace qpt::holder
