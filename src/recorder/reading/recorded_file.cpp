#include "recorder/reading/recorded_file.h"

#include <algorithm>

namespace packetroutines {

platform::LocalTime StartTimeOf(std::string_view recordFileName, std::string_view extension) {
  std::string moment = RecordDate(std::string(recordFileName), extension);
  std::replace(moment.begin(), moment.end(), '-', ':');
  return platform::ToLocalTime(moment);
}

}  // namespace packetroutines
