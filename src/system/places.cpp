#include "system/places.h"

namespace host {

std::string Utf8(const std::filesystem::path& place) {
  const std::u8string text = place.u8string();
  return {text.begin(), text.end()};
}

std::filesystem::path FromUtf8(const std::string& text) {
  return std::u8string(text.begin(), text.end());
}

std::string NativePlace(const std::string& path) {
  return Utf8(PlaceOf(path).make_preferred());
}

}  // namespace host
