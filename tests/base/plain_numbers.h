#pragma once

#include <array>
#include <cmath>
#include <cstdio>
#include <string>

namespace base_tests {

/// Fifteen significant digits as the C library prints them, which shares no code with the program.
inline std::string Printed(double value, const char* form = "%.15G") {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), form, value);
  return text.data();
}

/// The value with so many decimals, at least one, rounded half away from zero on its fifteen
/// printed digits.
inline std::string WithDecimals(double value, std::size_t decimals) {
  // "d.dddddddddddddde+XX"
  const std::string printed = Printed(std::abs(value), "%.14e");
  const int exponent = std::stoi(printed.substr(printed.find('e') + 1));
  std::string digits = printed.substr(0, 1) + printed.substr(2, 14);
  int whole = exponent + 1;
  if (whole < 1) {
    digits.insert(0, static_cast<std::size_t>(1 - whole), '0');
    whole = 1;
  }
  const auto kept = static_cast<std::size_t>(whole) + decimals;
  if (digits.size() < kept + 1) digits.append(kept + 1 - digits.size(), '0');
  const bool up = digits[kept] >= '5';
  digits.resize(kept);
  for (std::size_t i = kept; up && i > 0; --i) {
    if (digits[i - 1] != '9') {
      ++digits[i - 1];
      break;
    }
    digits[i - 1] = '0';
    if (i == 1) {
      digits.insert(0, 1, '1');
      ++whole;
    }
  }
  const bool zero = digits.find_first_not_of('0') == std::string::npos;
  digits.insert(static_cast<std::size_t>(whole), ".");
  return (value < 0 && !zero ? "-" : "") + digits;
}

}  // namespace base_tests
