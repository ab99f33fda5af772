#pragma once

#include <string>

#include "base/number_text.h"
#include "platform/stream_format.h"

namespace packetroutines {

/// How far a recording is, as the Recorder view shows it. The time takes the usual rate, whatever
/// the base frequency is.
inline std::string RecordProgress(const platform::NumberText& numbers, double samples) {
  return numbers.General(samples / platform::SamplesASecond) + "s / " + numbers.General(samples) +
         " samples";
}

}  // namespace packetroutines
