#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/local_time.h"
#include "config/settings.h"
#include "platform/services/file_system.h"

namespace packetroutines {

/// The name of a recording that began at a moment.
std::string RecordName(const platform::LocalTime& start, std::string_view extension);

/// The name of the file that tells what happened to a recording: "SV record 09.03.2024
/// 14-05-07.txt" has "Events SV record 09.03.2024 14-05-07.csv" beside it.
std::string EventsName(const std::string& recordFileName);

/// What stands for the name of a recording until its start; "after 'RUN'" in it tells that nothing
/// was recorded yet.
std::string RecordPlaceholder(std::string_view extension);

/// Something was recorded under this name.
bool IsRecorded(const std::string& recordFileName);

/// The moment that stands before `extension` in the name of a recording, as in
/// "SV record 09.03.2024 14-05-07.txt". Failure 5 where the name has no room for it, failure 13
/// where it is no date.
platform::LocalTime StartTimeOf(const std::string& recordFileName, std::string_view extension);

/// Where a stream's name says that it is one of two.
inline constexpr const char* FirstPrefix = "1_";
inline constexpr const char* SecondPrefix = "2_";

/// The prefix of a stream's files, 0 or 1. The first stream has one only beside a second; the
/// second always has.
std::string RecordPrefix(std::size_t stream, const config::RunSettings& present);

/// The path of a file in the folder for data.
std::string RecordPath(const platform::FileSystem& files, const config::Settings& settings,
                       const std::string& name);

}  // namespace packetroutines
