#include "system/file_stream.h"

#include <cerrno>
#include <system_error>

namespace host {

std::FILE* OpenStream(const std::filesystem::path& place, const char* mode) {
  std::FILE* const file = _wfopen(place.c_str(), std::filesystem::path(mode).c_str());
  if (file != nullptr) return file;
  const int reason = errno;
  std::error_code unknown;
  const bool folder = reason == EACCES && std::filesystem::is_directory(place, unknown);
  errno = folder ? EISDIR : reason;
  return nullptr;
}

}  // namespace host
