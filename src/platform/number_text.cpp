#include "platform/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace platform {

namespace {

constexpr int SignificantDigits = 15;

/// A finite value as decimal digits: value = 0.d1d2d3... * 10^Point.
struct Decimal {
  std::array<char, 40> Digits{};
  int Count = 0;
  int Point = 0;
};

Decimal ToDecimal(double magnitude) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                 std::chars_format::scientific, SignificantDigits - 1)
                       .ptr;
  Decimal decimal;
  const char* at = text.data();
  for (; at != end && *at != 'e'; ++at) {
    if (*at != '.') decimal.Digits[static_cast<std::size_t>(decimal.Count++)] = *at;
  }
  ++at;
  if (at != end && *at == '+') ++at;
  int exponent = 0;
  std::from_chars(at, end, exponent);
  decimal.Point = exponent + 1;
  return decimal;
}

/// Whether the magnitude of a decimal number is below 1, whatever its length.
bool IsBelowOne(std::string_view number) {
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view mantissa = number.substr(0, mark);
  const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
  const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
  std::string_view power = number.substr(std::min(mark + 1, number.size()));
  const bool negative = power.starts_with('-');
  if (negative || power.starts_with('+')) power.remove_prefix(1);
  std::int64_t exponent = 0;
  // More digits than these say no more than that the power is far out.
  power = power.substr(0, 9);
  std::from_chars(power.data(), power.data() + power.size(), exponent);
  return point - first + (negative ? -exponent : exponent) <= 0;
}

/// What a number outside of its type's range is: 0 where it is too small for it, else failure 6.
double TooSmallOrOverflow(std::string_view number) {
  if (!IsBelowOne(number)) throw Failure(failure::Overflow);
  return 0;
}

/// Rounds half away from zero behind `decimals` places; gives the integer and fraction digits.
std::string RoundedDigits(const Decimal& decimal, int decimals) {
  const int kept = decimal.Point + decimals;
  std::string digits;
  if (kept < 0) return std::string(static_cast<std::size_t>(decimals) + 1, '0');
  for (int i = 0; i < kept; ++i) {
    digits += i < decimal.Count ? decimal.Digits[static_cast<std::size_t>(i)] : '0';
  }
  const bool up = kept < decimal.Count && decimal.Digits[static_cast<std::size_t>(kept)] >= '5';
  if (up) {
    auto at = digits.rbegin();
    for (; at != digits.rend() && *at == '9'; ++at) *at = '0';
    if (at != digits.rend()) {
      ++*at;
    } else {
      digits.insert(digits.begin(), '1');
    }
  }
  const auto needed = static_cast<std::size_t>(decimals) + 1;
  if (digits.size() < needed) digits.insert(0, needed - digits.size(), '0');
  return digits;
}

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

/// The general form of a %G text: point to the locale, no plain "e".
std::string Localised(std::string text, char decimal) {
  std::replace(text.begin(), text.end(), '.', decimal);
  std::replace(text.begin(), text.end(), 'e', 'E');
  return text;
}

/// Behind a plus sign that stands for itself; one in front of another sign stays.
const char* BehindPlus(const char* begin, const char* end) {
  const bool plus = begin != end && *begin == '+';
  return plus && (begin + 1 == end || begin[1] != '-') ? begin + 1 : begin;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return (x | 0x20) == (y | 0x20); });
}

}  // namespace

std::string NumberText::General(double value) const {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::general, SignificantDigits)
                       .ptr;
  return Localised(std::string(text.data(), end), locale_.Decimal);
}

std::string NumberText::General(float value) const {
  std::array<char, 64> text{};
  const float magnitude = std::abs(value);
  const bool plain = value == 0 || (magnitude >= 1e-5F && magnitude < 1e7F);
  const auto form = plain ? std::chars_format::fixed : std::chars_format::scientific;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, form).ptr;
  return Localised(std::string(text.data(), end), locale_.Decimal);
}

std::string NumberText::Format(double value, std::string_view pattern) const {
  if (pattern.find('0') == std::string_view::npos || !std::isfinite(value)) return General(value);
  const auto point = pattern.find('.');
  const int decimals =
      point == std::string_view::npos ? 0 : static_cast<int>(pattern.size() - point - 1);
  const bool grouped = pattern.find(',') != std::string_view::npos;

  const std::string digits = RoundedDigits(ToDecimal(std::abs(value)), decimals);
  const std::size_t whole = digits.size() - static_cast<std::size_t>(decimals);
  std::string text;
  text.reserve(digits.size() + whole / 3 + 2);
  // A value that rounds to zero shows no sign.
  if (value < 0 && digits.find_first_not_of('0') != std::string::npos) text += '-';
  for (std::size_t i = 0; i < whole; ++i) {
    if (grouped && i > 0 && (whole - i) % 3 == 0) text += locale_.Group;
    text += digits[i];
  }
  if (decimals > 0) {
    text += locale_.Decimal;
    text.append(digits, whole);
  }
  return text;
}

double NumberText::ToDouble(std::string_view text) const {
  std::string plain;
  for (const char c : Trimmed(text)) {
    if (c == locale_.Group) continue;
    if (c == '.' && locale_.Decimal != '.') throw Failure(failure::TypeMismatch);
    plain += c == locale_.Decimal ? '.' : c;
  }
  const char* end = plain.data() + plain.size();
  const char* begin = BehindPlus(plain.data(), end);
  // Words such as "inf" and "nan" are no numbers here.
  if (begin == end || plain.find_first_not_of("+-.0123456789eE") != std::string::npos) {
    throw Failure(failure::TypeMismatch);
  }
  double value = 0;
  const auto [rest, error] = std::from_chars(begin, end, value);
  if (error == std::errc::invalid_argument || rest != end) throw Failure(failure::TypeMismatch);
  if (error == std::errc::result_out_of_range) return TooSmallOrOverflow({begin, rest});
  return value;
}

float NumberText::ToSingle(std::string_view text) const {
  const double value = ToDouble(text);
  if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
    throw Failure(failure::Overflow);
  }
  return static_cast<float>(value);
}

std::int16_t NumberText::ToInt16(std::string_view text) const {
  return Round<std::int16_t>(ToDouble(text));
}

std::int32_t NumberText::ToInt32(std::string_view text) const {
  return Round<std::int32_t>(ToDouble(text));
}

double NumberText::Leading(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    if (c != ' ' && c != '\t') plain += c;
  }
  const char* end = plain.data() + plain.size();
  double value = 0;
  const char* begin = BehindPlus(plain.data(), end);
  const auto [rest, error] = std::from_chars(begin, end, value);
  if (error == std::errc::result_out_of_range) return TooSmallOrOverflow({begin, rest});
  return error == std::errc() && std::isfinite(value) ? value : 0;
}

bool NumberText::ToBoolean(std::string_view text) const {
  const std::string_view word = Trimmed(text);
  if (EqualIgnoringCase(word, "True")) return true;
  if (EqualIgnoringCase(word, "False")) return false;
  return ToDouble(word) != 0;
}

}  // namespace platform
