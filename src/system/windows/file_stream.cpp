#include "system/file_stream.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <cerrno>
#include <string_view>
#include <system_error>

namespace host {

namespace {

/// The library's own streams know no 'x': they would empty a file that is there.
std::FILE* MakeStream(const std::filesystem::path& place) {
  const int made =
      _wopen(place.c_str(), _O_CREAT | _O_EXCL | _O_WRONLY | _O_BINARY, _S_IREAD | _S_IWRITE);
  if (made < 0) return nullptr;
  std::FILE* const file = _fdopen(made, "wb");
  if (file == nullptr) _close(made);
  return file;
}

}  // namespace

std::FILE* OpenStream(const std::filesystem::path& place, const char* mode) {
  std::FILE* const file = std::string_view(mode) == "wbx"
                              ? MakeStream(place)
                              : _wfopen(place.c_str(), std::filesystem::path(mode).c_str());
  if (file != nullptr) return file;
  const int reason = errno;
  std::error_code unknown;
  const bool folder = reason == EACCES && std::filesystem::is_directory(place, unknown);
  errno = folder ? EISDIR : reason;
  return nullptr;
}

}  // namespace host
