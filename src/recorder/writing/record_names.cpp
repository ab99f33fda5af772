#include "recorder/writing/record_names.h"

#include <algorithm>

#include "base/failure.h"

namespace packetroutines {

namespace {

/// In front of the moment of the start.
constexpr const char* Beginning = "SV record ";
/// "dd.mm.yyyy hh-MM-ss"
constexpr std::size_t DateLength = 19;
constexpr const char* NotYet = "after 'RUN'";

}  // namespace

std::string RecordName(const platform::LocalTime& start, std::string_view extension) {
  return Beginning + platform::DottedText(start, '-') + std::string(extension);
}

std::string EventsName(const std::string& recordFileName) {
  return "Events " + recordFileName.substr(0, recordFileName.rfind('.')) + ".csv";
}

std::string RecordPlaceholder(std::string_view extension) {
  return Beginning + std::string("dd.mm.yyyy hh-MM-ss") + std::string(extension) + " (" + NotYet +
         ")";
}

bool IsRecorded(const std::string& recordFileName) {
  return !recordFileName.empty() && recordFileName.find(NotYet) == std::string::npos;
}

platform::LocalTime StartTimeOf(const std::string& recordFileName, std::string_view extension) {
  const std::size_t end = recordFileName.find(extension);
  if (end == std::string::npos || end < DateLength) {
    throw platform::Failure(platform::failure::InvalidProcedureCall);
  }
  std::string moment = recordFileName.substr(end - DateLength, DateLength);
  std::replace(moment.begin(), moment.end(), '-', ':');
  return platform::ToLocalTime(moment);
}

std::string RecordPrefix(std::size_t stream, const config::RunSettings& present) {
  if (stream == 1) return SecondPrefix;
  return present.StreamCount == 2 ? FirstPrefix : "";
}

std::string RecordPath(const platform::FileSystem& files, const config::Settings& settings,
                       const std::string& name) {
  return files.Native(settings.StoragePath) + files.Separator() + name;
}

}  // namespace packetroutines
