#include "console/program/line_dialogs.h"

#include <string_view>

namespace console {

namespace {

/// The dialog's own reasons speak of the window.
constexpr const char* NoData =
    "No data received. Check the cable, the adapter, the filter and the ID of the station; "
    "'vornik-cli streams' tells what comes.";

/// The lines of a box behind each other.
std::string OneLine(std::string_view text) {
  std::string line;
  for (const char character : text) {
    const bool ends = character == '\r' || character == '\n';
    if (!ends) {
      line += character;
    } else if (!line.empty() && line.back() != ' ') {
      line += ' ';
    }
  }
  while (line.ends_with(' ')) line.pop_back();
  return line;
}

}  // namespace

platform::Answer LineDialogs::Show(const platform::Message& message) {
  tell_(OneLine(message.Text));
  switch (message.BoxButtons) {
    case platform::Buttons::YesNo:
      return platform::Answer::Yes;
    case platform::Buttons::OkStop:
      return platform::Answer::Stop;
    case platform::Buttons::Ok:
      break;
  }
  return platform::Answer::Ok;
}

void LineDialogs::ShowTimed(const platform::TimedMessage&) {
  noDataTold_ = true;
  tell_(NoData);
}

}  // namespace console
