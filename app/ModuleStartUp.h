#pragma once

namespace qpt {

// Everything that exists before process entry proper, in its order: the
// crash handler, the log manager, the language table, the display set-up and,
// last, the settings object, so that settings are ready before any form.
void RunModuleStartUp();

}  // namespace qpt
