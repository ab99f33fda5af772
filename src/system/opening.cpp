#include "system/opening.h"

#include <system_error>

#include "base/failure.h"
#include "platform/services/system_services.h"
#include "system/stdio_files.h"

namespace host {

namespace open_code = platform::open_code;

namespace {

std::optional<std::int32_t> FolderInTheWay(const std::filesystem::path& folder) {
  std::error_code refused;
  const std::filesystem::directory_iterator look(folder, refused);
  if (refused) return open_code::AccessDenied;
  return std::nullopt;
}

}  // namespace

std::optional<std::int32_t> InTheWay(const std::filesystem::path& place) {
  std::error_code unknown;
  const std::filesystem::path folder = std::filesystem::absolute(place, unknown).parent_path();
  if (!std::filesystem::is_directory(folder, unknown)) return open_code::PathNotFound;
  if (std::filesystem::is_directory(place, unknown)) return FolderInTheWay(place);
  if (!std::filesystem::is_regular_file(place, unknown)) return open_code::FileNotFound;
  try {
    OpenToRead(place);
  } catch (const platform::Failure&) {
    return open_code::AccessDenied;
  }
  return std::nullopt;
}

}  // namespace host
