#include "system/computer_files.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <system_error>

#include "base/failure.h"
#include "system/calendar.h"
#include "system/error_number.h"
#include "system/places.h"
#include "system/stdio_files.h"

namespace host {

namespace {

std::filesystem::file_type TypeOf(const std::string& path) {
  // The system would read the path as far as its first zero alone, and tell of another place.
  if (path.find('\0') != std::string::npos) return std::filesystem::file_type::not_found;
  std::error_code unknown;
  return std::filesystem::status(PlaceOf(path), unknown).type();
}

}  // namespace

std::string ComputerFiles::Separator() const {
  return {static_cast<char>(std::filesystem::path::preferred_separator)};
}

std::string ComputerFiles::DefaultFolder() const {
  return Utf8(RecordingsFolder());
}

bool ComputerFiles::DirectoryExists(const std::string& path) const {
  return TypeOf(path) == std::filesystem::file_type::directory;
}

std::string ComputerFiles::Native(const std::string& path) const {
  return NativePlace(path);
}

void ComputerFiles::MakeFolder(const std::string& path) {
  std::error_code missing;
  std::filesystem::create_directories(PlaceOf(path), missing);
}

void ComputerFiles::ListNames(const std::string& folder,
                              const std::function<void(std::string_view name)>& take) const {
  std::error_code refused;
  std::filesystem::directory_iterator at(PlaceOf(folder), refused);
  for (; !refused && at != std::filesystem::directory_iterator(); at.increment(refused)) {
    take(Utf8(at->path().filename()));
  }
}

bool ComputerFiles::FileExists(const std::string& path) const {
  return TypeOf(path) == std::filesystem::file_type::regular;
}

std::int64_t ComputerFiles::FileSize(const std::string& path) const {
  if (!FileExists(path)) return 0;
  std::error_code gone;
  const std::uintmax_t size = std::filesystem::file_size(PlaceOf(path), gone);
  return gone ? 0 : static_cast<std::int64_t>(size);
}

std::optional<std::int64_t> ComputerFiles::FreeSpace(const std::string& path) const {
  // Some systems tell of the folder around what is missing.
  if (TypeOf(path) == std::filesystem::file_type::not_found) return std::nullopt;
  std::error_code untold;
  const std::filesystem::space_info room = std::filesystem::space(PlaceOf(path), untold);
  if (untold) return std::nullopt;
  return static_cast<std::int64_t>(
      std::min<std::uintmax_t>(room.available, std::numeric_limits<std::int64_t>::max()));
}

platform::LocalTime ComputerFiles::LastWrite(const std::string& path) const {
  std::error_code gone;
  const auto moment = std::filesystem::last_write_time(PlaceOf(path), gone);
  if (gone || !FileExists(path)) throw platform::Failure(platform::failure::FileNotFound);
  return LocalTimeOf(std::chrono::system_clock::to_time_t(
      std::chrono::time_point_cast<std::chrono::system_clock::duration>(
          std::chrono::file_clock::to_sys(moment))));
}

void ComputerFiles::DeleteFile(const std::string& path) {
  if (!FileExists(path)) throw platform::Failure(platform::failure::FileNotFound);
  std::error_code refused;
  if (!std::filesystem::remove(PlaceOf(path), refused)) {
    throw platform::Failure(platform::failure::PermissionDenied);
  }
}

void ComputerFiles::Rename(const std::string& from, const std::string& to) {
  if (!FileExists(from)) throw platform::Failure(platform::failure::FileNotFound);
  const std::filesystem::path place = PlaceOf(to);
  std::error_code refused;
  // Not every system tells this reason from others.
  if (place.has_parent_path() && std::filesystem::status(place.parent_path(), refused).type() ==
                                     std::filesystem::file_type::not_found) {
    throw platform::Failure(platform::failure::PathNotFound);
  }
  std::filesystem::rename(PlaceOf(from), place, refused);
  if (refused) {
    throw platform::Failure(FailureNumber(refused.value(), platform::failure::PathNotFound));
  }
}

bool ComputerFiles::MakeNew(const std::string& path) {
  try {
    OpenNew(PlaceOf(path))->Close();
  } catch (const platform::Failure&) {
    if (TypeOf(path) == std::filesystem::file_type::not_found) throw;
    return false;
  }
  return true;
}

std::unique_ptr<platform::OutputFile> ComputerFiles::Append(const std::string& path) {
  return OpenToAppend(PlaceOf(path));
}

std::unique_ptr<platform::OutputFile> ComputerFiles::Create(const std::string& path) {
  return OpenAnew(PlaceOf(path));
}

std::unique_ptr<platform::OutputFile> ComputerFiles::Amend(const std::string& path) {
  return OpenToAmend(PlaceOf(path));
}

std::unique_ptr<platform::InputFile> ComputerFiles::Read(const std::string& path) {
  return OpenToRead(PlaceOf(path));
}

}  // namespace host
