#pragma once

#include <filesystem>

namespace host {

/// The user's own folder.
std::filesystem::path Home();

}  // namespace host
