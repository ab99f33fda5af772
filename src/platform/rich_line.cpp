#include "platform/rich_line.h"

#include <array>

#include "base/failure.h"
#include "base/number_text.h"

namespace platform {

namespace {

struct Fields {
  std::string_view Font;
  std::string_view Size;
  std::string_view Style;
  std::string_view Text;
};

Fields Split(std::string_view line) {
  std::array<std::string_view, 3> first;
  for (std::string_view& field : first) {
    const auto bar = line.find('|');
    if (bar == std::string_view::npos) {
      throw Failure(failure::InvalidProcedureCall);
    }
    field = line.substr(0, bar);
    line.remove_prefix(bar + 1);
  }
  return {first[0], first[1], first[2], line};
}

}  // namespace

std::string RichFont(std::string_view line) {
  return std::string(Split(line).Font);
}

float RichSize(std::string_view line) {
  // Sizes are written by the program itself, so they do not follow the locale.
  return NumberText().ToSingle(Split(line).Size);
}

bool RichBold(std::string_view line) {
  const std::string_view style = Split(line).Style;
  return style == "fett" || style == "fettunderline";
}

bool RichUnderline(std::string_view line) {
  const std::string_view style = Split(line).Style;
  return style == "normalunderline" || style == "fettunderline";
}

std::string RichText(std::string_view line) {
  return std::string(Split(line).Text);
}

}  // namespace platform
