#include "recorder/events/event_line.h"

#include "base/local_time.h"
#include "platform/services/dialogs.h"

namespace packetroutines {

namespace {

constexpr const char* Separator = ";";

std::string Quoted(const std::string& text) {
  if (text.find_first_of(";\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"') quoted += '"';
    quoted += character;
  }
  return quoted + '"';
}

template <typename Number>
std::string Plain(const std::optional<Number>& number) {
  return number ? std::to_string(*number) : "";
}

}  // namespace

std::string EventHeading() {
  return std::string("time;stream;line;event;count;figures") + platform::Crlf;
}

std::string EventTime(std::chrono::microseconds at, const platform::Calendar& calendar) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(at);
  const auto milliseconds =
      std::chrono::duration_cast<std::chrono::milliseconds>(at - seconds).count();
  const std::string three = std::to_string(1000 + milliseconds).substr(1);
  return platform::NumericText(calendar.At(seconds)) + "." + three;
}

std::string EventLine(const RecordEvent& event, const platform::Calendar& calendar) {
  const std::string stream = event.Stream ? std::to_string(*event.Stream + 1) : "";
  return EventTime(event.At, calendar) + Separator + stream + Separator + Plain(event.Line) +
         Separator + event.What + Separator + Plain(event.Count) + Separator +
         Quoted(event.Figures) + platform::Crlf;
}

}  // namespace packetroutines
