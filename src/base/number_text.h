#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "base/failure.h"

namespace platform {

/// The separators of the machine's number texts.
struct NumberLocale {
  char Decimal = '.';
  char Group = ',';
};

/// Number texts of one locale: general form, patterns, and the conversions back.
///
/// Conversions raise failure 13 for a text that is no number and failure 6 for a number that does
/// not fit its type.
class NumberText {
 public:
  NumberText() = default;
  explicit NumberText(NumberLocale locale) : locale_(locale) {}

  /// As many digits as the value needs, up to 15 significant ones, no grouping.
  std::string General(double value) const;
  /// The shortest text that reads back as the same 32-bit float.
  std::string General(float value) const;
  static std::string General(std::int32_t value) { return std::to_string(value); }
  static std::string General(std::int16_t value) { return std::to_string(value); }
  static std::string General(std::int64_t value) { return std::to_string(value); }

  /// The value through a pattern such as "###,###,##0.00": rounded half away from zero to the
  /// decimals of the pattern. A pattern without a digit place gives the general form.
  std::string Format(double value, std::string_view pattern) const;

  /// The same texts written behind a text that grows: they allocate nothing as long as it has room,
  /// so a writer of many numbers keeps one text for them all.
  void AppendGeneral(std::string& text, double value) const;
  static void AppendGeneral(std::string& text, std::int64_t value);
  void AppendFormat(std::string& text, double value, std::string_view pattern) const;

  double ToDouble(std::string_view text) const;
  float ToSingle(std::string_view text) const;
  /// Fractions are rounded to the nearest whole number, halves to the even one.
  std::int16_t ToInt16(std::string_view text) const;
  std::int32_t ToInt32(std::string_view text) const;
  /// The number that the text begins with, read with a decimal point in every locale; 0 without
  /// one.
  static double Leading(std::string_view text);
  /// "True" and "False" in any case, or a number, of which 0 is False.
  bool ToBoolean(std::string_view text) const;
  static std::string General(bool value) { return value ? "True" : "False"; }

 private:
  NumberLocale locale_;
};

/// The nearest whole number, halves to the even one; failure 6 where it does not fit the type.
template <typename To>
To Round(double value) {
  const double whole = std::nearbyint(value);
  // The largest value of a type may not be exact as a double, one more than it is.
  constexpr double Limit = -static_cast<double>(std::numeric_limits<To>::min());
  if (!(whole >= -Limit && whole < Limit)) throw Failure(failure::Overflow);
  return static_cast<To>(whole);
}

/// The value in a narrower integer type; failure 6 where it does not fit.
template <typename To, typename From>
To Narrow(From value) {
  const To narrow = static_cast<To>(value);
  if (static_cast<From>(narrow) != value || (narrow < To{}) != (value < From{})) {
    throw Failure(failure::Overflow);
  }
  return narrow;
}

}  // namespace platform
