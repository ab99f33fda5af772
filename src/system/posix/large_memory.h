#pragma once

namespace host {

/// Has blocks of a MiB and more mapped one by one, where the C library can be told so.
void MapLargeMemory();

}  // namespace host
