#include "recorder/recorded_file.h"

#include <algorithm>

#include "platform/failure.h"

namespace packetroutines {

platform::LocalTime StartTimeOf(std::string_view recordFileName, std::string_view extension) {
  constexpr std::size_t MomentLength = 19;
  const std::size_t end = recordFileName.find(extension);
  if (end == std::string_view::npos || end < MomentLength) {
    throw platform::Failure(platform::failure::InvalidProcedureCall);
  }
  std::string moment(recordFileName.substr(end - MomentLength, MomentLength));
  std::replace(moment.begin(), moment.end(), '-', ':');
  return platform::ToLocalTime(moment);
}

}  // namespace packetroutines
