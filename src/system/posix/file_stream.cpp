#include "system/file_stream.h"

namespace host {

std::FILE* OpenStream(const std::filesystem::path& place, const char* mode) {
  return std::fopen(place.c_str(), mode);
}

}  // namespace host
