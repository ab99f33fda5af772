#pragma once

#include <cstdio>
#include <filesystem>

namespace host {

/// Opens a file of the C library by a mode of `std::fopen`. Null where that fails; `errno` tells
/// why, and EISDIR of a folder.
std::FILE* OpenStream(const std::filesystem::path& place, const char* mode);

}  // namespace host
