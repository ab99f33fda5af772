#pragma once

#include "console/exit_code.h"
#include "console/machine.h"

namespace console {

/// The program without a window: finds the command that the arguments name, runs it, and tells what
/// became of it. The first argument is the program's own name.
ExitCode Run(int argc, const char* const* argv, const Machine& machine);

}  // namespace console
