#pragma once

namespace host {

/// Leaves the process at once, with what was written so far on its way.
[[noreturn]] void LeaveProcess(int exitCode);

}  // namespace host
