#pragma once

namespace host {

/// Has the system close all descriptors behind the standard streams where a program is executed.
void CloseDescriptorsAtExec();

}  // namespace host
