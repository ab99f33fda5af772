#include "base/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "base/decimal_digits.h"

namespace platform {

namespace {

/// A number of at least this many digits in front of its point has the exponent form.
constexpr int LongestPlain = SignificantDigits;
/// So has one with more zeros behind its point.
constexpr int MostZeros = 4;

void AppendZeros(std::string& text, int count) {
  if (count > 0) text.append(static_cast<std::size_t>(count), '0');
}

void AppendDigits(std::string& text, const Decimal& decimal, int first, int behind) {
  text.append(decimal.Digits.data() + first, static_cast<std::size_t>(behind - first));
}

/// "1.25E-07": one digit in front of the point and a power of at least two digits.
void AppendExponentForm(std::string& text, const Decimal& decimal, char point) {
  AppendDigits(text, decimal, 0, 1);
  if (decimal.Count > 1) {
    text += point;
    AppendDigits(text, decimal, 1, decimal.Count);
  }
  const int exponent = decimal.Point - 1;
  text += exponent < 0 ? "E-" : "E+";
  if (std::abs(exponent) < 10) text += '0';
  NumberText::AppendGeneral(text, std::int64_t{std::abs(exponent)});
}

void AppendPlainForm(std::string& text, const Decimal& decimal, char point) {
  const int whole = std::clamp(decimal.Point, 0, decimal.Count);
  if (decimal.Point <= 0) text += '0';
  AppendDigits(text, decimal, 0, whole);
  AppendZeros(text, decimal.Point - decimal.Count);
  if (whole == decimal.Count) return;
  text += point;
  AppendZeros(text, -decimal.Point);
  AppendDigits(text, decimal, whole, decimal.Count);
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
  // Digits of the usual size need no memory of their own.
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
  std::string text;
  AppendGeneral(text, value);
  return text;
}

void NumberText::AppendGeneral(std::string& text, double value) const {
  if (std::signbit(value)) text += '-';
  if (!std::isfinite(value)) {
    text += std::isnan(value) ? "nan" : "inf";
    return;
  }
  const Decimal decimal = ToDecimal(std::abs(value));
  if (decimal.Point > LongestPlain || decimal.Point < 1 - MostZeros) {
    AppendExponentForm(text, decimal, locale_.Decimal);
  } else {
    AppendPlainForm(text, decimal, locale_.Decimal);
  }
}

void NumberText::AppendGeneral(std::string& text, std::int64_t value) {
  std::array<char, 24> digits{};
  const char* const begin = digits.data();
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  text.append(begin, end);
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
  std::string text;
  AppendFormat(text, value, pattern);
  return text;
}

void NumberText::AppendFormat(std::string& text, double value, std::string_view pattern) const {
  if (pattern.find('0') == std::string_view::npos || !std::isfinite(value)) {
    AppendGeneral(text, value);
    return;
  }
  const auto point = pattern.find('.');
  const int decimals =
      point == std::string_view::npos ? 0 : static_cast<int>(pattern.size() - point - 1);
  const bool grouped = pattern.find(',') != std::string_view::npos;

  const std::string digits = RoundedDigits(ToDecimal(std::abs(value)), decimals);
  const std::size_t whole = digits.size() - static_cast<std::size_t>(decimals);
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
  constexpr float Largest = std::numeric_limits<float>::max();
  // The shortest text of the largest float is a little above it.
  constexpr double Bound = static_cast<double>(Largest) * (1 + 0x1p-25);
  const double value = ToDouble(text);
  if (std::abs(value) >= Bound) throw Failure(failure::Overflow);
  if (std::abs(value) > static_cast<double>(Largest)) return value < 0 ? -Largest : Largest;
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
