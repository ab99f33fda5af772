#pragma once

namespace host {

/// Leaves the process at once, with what was written so far on its way.
[[noreturn]] void LeaveProcess(int exitCode);

/// Whatever this process has open now, a child that is started from here on gets nothing of it but
/// the standard streams. Libraries leave files and sockets to children, each in its own way, so who
/// starts one calls this before.
void KeepDescriptorsFromChildren();

}  // namespace host
