#pragma once

namespace platform {

/// Unwinds the handlers of a program that has ended, where the process lives on.
struct ProgramEnded {};

}  // namespace platform
