#include "platform/services/calendar.h"

namespace platform {

std::string MomentText(const Calendar& calendar, std::chrono::microseconds moment) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(moment);
  const auto milliseconds =
      std::chrono::duration_cast<std::chrono::milliseconds>(moment - seconds).count();
  return NumericText(calendar.At(seconds)) + "." + std::to_string(1000 + milliseconds).substr(1);
}

}  // namespace platform
