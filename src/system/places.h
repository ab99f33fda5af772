#pragma once

#include <filesystem>
#include <string>

namespace host {

/// The place that a path of the program means here. Off Windows a path with a drive letter lies in
/// the user's home, and a backslash separates folders.
std::filesystem::path PlaceOf(const std::string& path);
/// The same in the system's own writing.
std::string NativePlace(const std::string& path);

/// The folder for data of the user's programs; it need not exist.
std::filesystem::path DataFolder();
/// The folder for recordings as long as the user chose no other.
std::filesystem::path RecordingsFolder();

/// Texts inside the program are UTF-8.
std::string Utf8(const std::filesystem::path& place);
std::filesystem::path FromUtf8(const std::string& text);

}  // namespace host
