#pragma once

#include <string>
#include <vector>

namespace support {

/// What the platform was asked for, in order, one line a request.
using Journal = std::vector<std::string>;

}  // namespace support
