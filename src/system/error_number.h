#pragma once

#include <cstdint>

namespace host {

/// The number of the failure that an error of the system (`errno`) means. A name that leads nowhere
/// is a missing file to a reader; one who writes misses its folder.
std::int32_t FailureNumber(int error, std::int32_t missing);

}  // namespace host
