#pragma once

namespace host {

/// Leaves the process at once, with what was written so far on its way.
[[noreturn]] void LeaveProcess(int exitCode);

/// Whatever this process has open now, a child that is started from here on gets nothing of it but
/// the standard streams. Libraries leave files and sockets to children, each in its own way, so who
/// starts one calls this before.
void KeepDescriptorsFromChildren();

/// From now on a block of memory of a MiB or more, such as the picture of a page, goes back to the
/// system when it is freed. A library that takes the largest blocks met so far for usual ones keeps
/// them between smaller ones.
void GiveLargeMemoryBack();

}  // namespace host
