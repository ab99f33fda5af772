#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "config/settings.h"
#include "forms/recorder_controls.h"
#include "platform/services/file_system.h"

namespace packetroutines {

/// A file format of a recording.
struct RecordFormat {
  /// As the store keeps it.
  std::string_view Name;
  std::string_view Extension;
};

namespace file_format {
inline constexpr std::string_view Text = "TXT";
inline constexpr std::string_view Worksheet = "EXCEL";
inline constexpr std::string_view Comtrade = "COMTRADE";
}  // namespace file_format

/// The formats by the index of their choice, `Option2`.
inline constexpr std::array<RecordFormat, forms::record_format::Count> RecordFormats = {{
    {file_format::Text, ".txt"},
    {file_format::Worksheet, ".xls"},
    {file_format::Comtrade, ".dat"},
}};

/// The format of a name; null where there is none.
const RecordFormat* FindFormat(std::string_view name);

/// What stands for the name of a recording until its start; "after 'RUN'" in it tells that nothing
/// was recorded yet.
std::string RecordPlaceholder(const RecordFormat& format);

/// Where a stream's name says that it is one of two.
inline constexpr const char* FirstPrefix = "1_";
inline constexpr const char* SecondPrefix = "2_";

/// The prefix of a stream's files, 0 or 1. The first stream has one only beside a second; the
/// second always has.
std::string RecordPrefix(std::size_t stream, const config::RunSettings& present);

/// The path of a file in the folder for data.
std::string RecordPath(const platform::FileSystem& files, const config::Settings& settings,
                       const std::string& name);

/// The date and time in the name of a recording, in front of its extension: the form
/// "dd.mm.yyyy hh-MM-ss". Failure 5 where the name has no such place.
std::string RecordDate(const std::string& recordFileName, std::string_view extension);

/// Replaces the first comma from a place on by a point: it takes the decimal comma of a locale out
/// of a number text.
void DotDecimal(std::string& text, std::size_t from = 0);

}  // namespace packetroutines
