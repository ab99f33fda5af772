#include "console/commands/recording_name.h"

#include <cstddef>

#include "base/failure.h"
#include "recorder/writing/record_names.h"
#include "recorder/writing/text_format.h"

namespace console {

using packetroutines::TextFacts;

std::string RecordingName::Base() const {
  const bool text = Name.ends_with(TextFacts.Extension);
  return text ? Name.substr(0, Name.size() - TextFacts.Extension.size()) : Name;
}

std::optional<platform::LocalTime> RecordingName::Start() const {
  try {
    return packetroutines::StartTimeOf(Name, TextFacts.Extension);
  } catch (const platform::Failure&) {
    // Somebody has given it another name.
    return std::nullopt;
  }
}

bool RecordingName::OfSecondStream() const {
  return Name.starts_with(packetroutines::SecondPrefix);
}

RecordingName NameOf(const platform::FileSystem& files, const std::string& path) {
  // A path may be typed with the one separator that any system knows.
  const std::size_t end = path.find_last_of("/" + files.Separator());
  const std::size_t begin = end == std::string::npos ? 0 : end + 1;
  return {path.substr(0, begin), path.substr(begin)};
}

}  // namespace console
