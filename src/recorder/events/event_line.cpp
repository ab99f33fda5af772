#include "recorder/events/event_line.h"

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

std::string EventLine(const RecordEvent& event, const platform::Calendar& calendar) {
  const std::string stream = event.Stream ? std::to_string(*event.Stream + 1) : "";
  return platform::MomentText(calendar, event.At) + Separator + stream + Separator +
         Plain(event.Line) + Separator + event.What + Separator + Plain(event.Count) + Separator +
         Quoted(event.Figures) + platform::Crlf;
}

}  // namespace packetroutines
