#pragma once

namespace qpt {

// The whole life of the process: module start-up, the switches, the forms and
// the message loop. Returns the exit code of a normal halt.
int RunProcess(int argc, char** argv);

}  // namespace qpt
