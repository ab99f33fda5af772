#include "recorder/reading/ramp_field.h"

#include "base/failure.h"
#include "base/number_text.h"

namespace packetroutines {

std::int32_t OddRamp(std::string_view line) {
  // Where there is no first sign, the search for the second one finds none either.
  const std::size_t first = line.find(FieldSign);
  const std::size_t second = line.find(FieldSign, first + 1);
  if (second == std::string_view::npos)
    throw platform::Failure(platform::failure::InvalidProcedureCall);
  const double number = platform::NumberText::Leading(line.substr(first + 1, second - first - 1));
  return platform::Round<std::int32_t>(number);
}

}  // namespace packetroutines
