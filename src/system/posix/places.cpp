#include "system/places.h"

#include <algorithm>
#include <cstdlib>

#include "system/posix/home.h"

namespace host {

namespace {

std::filesystem::path Named(const char* variable) {
  const char* place = std::getenv(variable);
  return place == nullptr ? "" : place;
}

}  // namespace

std::filesystem::path PlaceOf(const std::string& path) {
  // A name of this system may hold a backslash, so a path that is one of its own stays as it is.
  if (path.starts_with('/')) return FromUtf8(path);
  std::string place = path;
  std::replace(place.begin(), place.end(), '\\', '/');
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  const bool drive = place.size() >= 2 && isLetter(place[0]) && place[1] == ':';
  if (!drive) return FromUtf8(place);
  place.erase(0, std::min(place.find_first_not_of('/', 2), place.size()));
  return place.empty() ? Home() : Home() / FromUtf8(place);
}

std::filesystem::path Home() {
  const std::filesystem::path home = Named("HOME").lexically_normal();
  if (home.empty()) return "/";
  return home.has_filename() || home == home.root_path() ? home : home.parent_path();
}

std::filesystem::path RecordingsFolder() {
  return Home() / "StoredData";
}

std::filesystem::path DataFolder() {
#ifdef __APPLE__
  return Home() / "Library" / "Application Support";
#else
  const std::filesystem::path data = Named("XDG_DATA_HOME");
  return data.empty() ? Home() / ".local" / "share" : data;
#endif
}

}  // namespace host
