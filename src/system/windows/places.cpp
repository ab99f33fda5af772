#include "system/places.h"

#include <cstdlib>

namespace host {

std::filesystem::path PlaceOf(const std::string& path) {
  return FromUtf8(path);
}

std::filesystem::path RecordingsFolder() {
  return "c:\\StoredData";
}

std::filesystem::path DataFolder() {
  const wchar_t* place = _wgetenv(L"LOCALAPPDATA");
  return place == nullptr ? L"" : place;
}

}  // namespace host
