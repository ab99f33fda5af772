#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace packetroutines {

/// What ends a field of a recording's line.
inline constexpr char FieldSign = ';';

/// The ramp of a line in its general form: the number that the text of the second field begins
/// with. Failure 5 where the line has no second field that ends.
std::int32_t OddRamp(std::string_view line);

/// The ramp of a line, its second field. Nearly all of them are a few digits and nothing else.
inline std::int32_t RampOf(std::string_view line) {
  constexpr std::ptrdiff_t PlainDigits = 9;
  const char* at = line.data();
  const char* const end = at + line.size();
  while (at != end && *at != FieldSign) ++at;
  if (at == end) return OddRamp(line);
  const char* const field = ++at;
  std::int32_t ramp = 0;
  for (; at != end && *at >= '0' && *at <= '9' && at - field < PlainDigits; ++at) {
    ramp = ramp * 10 + (*at - '0');
  }
  const bool plain = at != end && *at == FieldSign;
  return plain ? ramp : OddRamp(line);
}

}  // namespace packetroutines
