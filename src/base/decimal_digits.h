#pragma once

#include <array>

namespace platform {

/// Digits that a general number text shows at most.
inline constexpr int SignificantDigits = 15;

/// A number as decimal digits: 0.d1d2d3... * 10^Point, without zeros at its end; 0 has no digits.
struct Decimal {
  /// The shortest writing of a number has at most 17.
  std::array<char, 24> Digits{};
  int Count = 0;
  int Point = 0;
};

/// A finite magnitude rounded to 15 significant digits, halves to even as `printf` does.
Decimal ToDecimal(double magnitude);

}  // namespace platform
