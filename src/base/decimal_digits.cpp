#include "base/decimal_digits.h"

#include <bit>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>

namespace platform {

namespace {

/// The digits and the power of a text such as "1.25e-03", the writing of a number in scientific
/// form.
Decimal Read(const char* at, const char* end) {
  Decimal decimal;
  char* digit = decimal.Digits.data();
  *digit++ = *at++;
  if (*at == '.') {
    for (++at; *at != 'e'; ++at) *digit++ = *at;
  }
  decimal.Count = static_cast<int>(digit - decimal.Digits.data());
  ++at;
  if (*at == '+') ++at;
  int exponent = 0;
  std::from_chars(at, end, exponent);
  decimal.Point = exponent + 1;
  return decimal;
}

void DropZeros(Decimal& decimal) {
  while (decimal.Count > 0 && decimal.Digits[static_cast<std::size_t>(decimal.Count) - 1] == '0') {
    --decimal.Count;
  }
}

/// Cuts the digits behind the fifteenth, which are known to lie off the middle.
void RoundToFifteen(Decimal& decimal) {
  const bool up = decimal.Digits[SignificantDigits] >= '5';
  decimal.Count = SignificantDigits;
  if (!up) return;
  while (decimal.Count > 0 && decimal.Digits[static_cast<std::size_t>(decimal.Count) - 1] == '9') {
    --decimal.Count;
  }
  if (decimal.Count > 0) {
    ++decimal.Digits[static_cast<std::size_t>(decimal.Count) - 1];
    return;
  }
  decimal.Digits[0] = '1';
  decimal.Count = 1;
  ++decimal.Point;
}

/// Sampled values are whole multiples of a hundred-thousandth: raw counts in mA or tens of mV,
/// shown in A, V or kV.
constexpr double PartsOfUnit = 1e5;
constexpr int PartDigits = 5;
/// So that the parts of one have fifteen digits at most.
constexpr double FirstLongValue = 1e10;

/// The digits of a value that differs from a decimal number with five places by not more than the
/// rounding of a product. A double lies within half a unit of its last bit of the decimal number,
/// so its neighbours lie within one and a half, and that is less than half a unit of the fifteenth
/// digit: all three show the decimal number.
std::optional<Decimal> AsParts(double magnitude) {
  if (!(magnitude < FirstLongValue)) return std::nullopt;
  // A wrong rounding is found below; the right one is a call that a recording would pay for.
  // NOLINTNEXTLINE(bugprone-incorrect-roundings)
  const auto parts = static_cast<std::int64_t>(magnitude * PartsOfUnit + 0.5);
  if (parts == 0) return std::nullopt;
  const auto nearest = std::bit_cast<std::int64_t>(static_cast<double>(parts) / PartsOfUnit);
  const std::int64_t apart = nearest - std::bit_cast<std::int64_t>(magnitude);
  if (apart < -1 || apart > 1) return std::nullopt;
  Decimal decimal;
  char* const begin = decimal.Digits.data();
  decimal.Count =
      static_cast<int>(std::to_chars(begin, begin + decimal.Digits.size(), parts).ptr - begin);
  decimal.Point = decimal.Count - PartDigits;
  DropZeros(decimal);
  return decimal;
}

/// The fifteen digits of the shortest writing, which is found several times faster than fifteen
/// exact digits. Up to fifteen of them are the wanted ones, since a double keeps as many of any
/// decimal number. More of them lie on the same side of each middle between two numbers of fifteen
/// digits as the number itself, or the middle would be the shorter or the nearer writing. Only the
/// middle itself does not tell the side, and below the normal numbers nothing of this holds.
std::optional<Decimal> FromShortest(double magnitude) {
  if (magnitude < std::numeric_limits<double>::min()) return std::nullopt;
  std::array<char, 32> text{};
  char* const begin = text.data();
  Decimal decimal =
      Read(begin,
           std::to_chars(begin, begin + text.size(), magnitude, std::chars_format::scientific).ptr);
  const bool middle =
      decimal.Count == SignificantDigits + 1 && decimal.Digits[SignificantDigits] == '5';
  if (middle) return std::nullopt;
  if (decimal.Count > SignificantDigits) RoundToFifteen(decimal);
  DropZeros(decimal);
  return decimal;
}

Decimal Exact(double magnitude) {
  std::array<char, 32> text{};
  char* const begin = text.data();
  Decimal decimal = Read(begin, std::to_chars(begin, begin + text.size(), magnitude,
                                              std::chars_format::scientific, SignificantDigits - 1)
                                    .ptr);
  DropZeros(decimal);
  return decimal;
}

}  // namespace

Decimal ToDecimal(double magnitude) {
  if (magnitude == 0) return {};
  if (const std::optional<Decimal> parts = AsParts(magnitude)) return *parts;
  if (const std::optional<Decimal> shortest = FromShortest(magnitude)) return *shortest;
  return Exact(magnitude);
}

}  // namespace platform
