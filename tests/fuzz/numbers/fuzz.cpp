// Numbers become texts and texts numbers as the C library has it, whatever the locale.

#include <bit>
#include <cerrno>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "base/failure.h"
#include "base/hex_text.h"
#include "base/local_time.h"
#include "base/number_text.h"
#include "base/plain_numbers.h"
#include "fuzz/demand.h"
#include "fuzz/script.h"

namespace {

using fuzz::Demand;
using platform::NumberLocale;
using platform::NumberText;
namespace failure = platform::failure;

constexpr NumberLocale Locales[] = {{'.', ','}, {',', '.'}, {',', ' '}, {'.', '\''}};
constexpr const char* Patterns[] = {
    "0", "0.0", "0.00", "0.000", "#,##0.0", "###,###,##0.00", "#,##0.000", "#", "##0.0000", ""};

/// What a conversion came to: a value, or the number of its failure.
template <typename T>
struct Outcome {
  std::optional<T> Value;
  std::int32_t Failed = 0;
};

template <typename Convert>
auto Try(Convert convert) -> Outcome<decltype(convert())> {
  try {
    return {convert(), 0};
  } catch (const platform::Failure& met) {
    Demand(met.Number() == failure::TypeMismatch || met.Number() == failure::Overflow,
           "a text is refused with one of two failures");
    return {std::nullopt, met.Number()};
  }
}

/// Which part of the text at its front is a number: a sign, digits with a point, a power.
std::size_t NumberLength(std::string_view text) {
  const auto digits = [&](std::size_t at) {
    while (at < text.size() && text[at] >= '0' && text[at] <= '9') ++at;
    return at;
  };
  const std::size_t begin = text.starts_with('-') ? 1 : 0;
  std::size_t at = digits(begin);
  std::size_t count = at - begin;
  if (at < text.size() && text[at] == '.') {
    const std::size_t behind = digits(at + 1);
    count += behind - at - 1;
    at = behind;
  }
  if (count == 0) return 0;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    std::size_t power = at + 1;
    if (power < text.size() && (text[power] == '+' || text[power] == '-')) ++power;
    if (digits(power) > power) at = digits(power);
  }
  return at;
}

/// The C library's reading of it; the failure is that of a number beyond all bounds.
Outcome<double> Read(const std::string& number) {
  const double value = std::strtod(number.c_str(), nullptr);
  if (std::isinf(value)) return {std::nullopt, failure::Overflow};
  return {value, 0};
}

std::string WithoutPlus(const std::string& text) {
  return text.starts_with('+') && !text.starts_with("+-") ? text.substr(1) : text;
}

/// The plain reading of a whole text in a locale.
Outcome<double> PlainNumber(const std::string& text, NumberLocale locale) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {std::nullopt, failure::TypeMismatch};
  std::string plain;
  for (const char sign : text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1)) {
    if (sign == locale.Group) continue;
    if (sign == '.' && locale.Decimal != '.') return {std::nullopt, failure::TypeMismatch};
    plain += sign == locale.Decimal ? '.' : sign;
  }
  plain = WithoutPlus(plain);
  if (plain.empty() || NumberLength(plain) != plain.size()) {
    return {std::nullopt, failure::TypeMismatch};
  }
  return Read(plain);
}

/// Equal, or both too small for a number of their own: there the readings may differ.
bool Same(double a, double b) {
  return a == b || (std::abs(a) < std::numeric_limits<double>::min() &&
                    std::abs(b) < std::numeric_limits<double>::min());
}

void CheckSame(const Outcome<double>& read, const Outcome<double>& plain, const char* what) {
  Demand(read.Failed == plain.Failed, what);
  if (read.Value) Demand(Same(*read.Value, *plain.Value), what);
}

template <typename Whole>
void CheckWhole(const Outcome<Whole>& read, const Outcome<double>& number) {
  if (!number.Value) return Demand(read.Failed == number.Failed, "a text is no whole number");
  const double whole = std::nearbyint(*number.Value);
  const bool fits = whole >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
                    whole <= static_cast<double>(std::numeric_limits<Whole>::max());
  Demand(read.Value.has_value() == fits, "a whole number fits its type or does not");
  if (fits) Demand(static_cast<double>(*read.Value) == whole, "a text is the nearest whole number");
}

void CheckTexts(const std::string& text, NumberLocale locale) {
  const NumberText numbers(locale);
  const Outcome<double> plain = PlainNumber(text, locale);
  CheckSame(Try([&] { return numbers.ToDouble(text); }), plain, "a text is its number");
  CheckWhole(Try([&] { return numbers.ToInt16(text); }), plain);
  CheckWhole(Try([&] { return numbers.ToInt32(text); }), plain);
  const auto single = Try([&] { return numbers.ToSingle(text); });
  if (single.Value)
    Demand(*single.Value == static_cast<float>(*plain.Value), "a text is its float");
  static_cast<void>(Try([&] { return numbers.ToBoolean(text); }));

  std::string unspaced;
  for (const char sign : text) {
    if (sign != ' ' && sign != '\t') unspaced += sign;
  }
  unspaced = WithoutPlus(unspaced);
  const std::size_t length = NumberLength(unspaced);
  const Outcome<double> leading =
      length == 0 ? Outcome<double>{0.0, 0} : Read(unspaced.substr(0, length));
  CheckSame(Try([&] { return NumberText::Leading(text); }), leading,
            "a text is the number that it begins with");
}

std::string Localised(std::string text, NumberLocale locale) {
  for (char& sign : text) sign = sign == '.' ? locale.Decimal : sign;
  return text;
}

void CheckDouble(double value, NumberLocale locale, std::string_view pattern) {
  if (!std::isfinite(value)) return;
  const NumberText numbers(locale);
  const std::string printed = base_tests::Printed(value);
  const std::string general = numbers.General(value);
  Demand(general == Localised(printed, locale), "a number has fifteen digits");
  CheckSame(Try([&] { return numbers.ToDouble(general); }), Read(printed),
            "what is written is read back");
  const std::string text = numbers.Format(value, pattern);
  if (pattern.find('0') == std::string_view::npos) {
    return Demand(text == general, "a pattern without a digit is the general form");
  }
  const auto point = pattern.find('.');
  if (point == std::string_view::npos) return;
  std::string plain = base_tests::WithDecimals(value, pattern.size() - point - 1);
  if (pattern.find(',') != std::string_view::npos) {
    const std::size_t front = value < 0 && plain.starts_with('-') ? 1 : 0;
    std::string grouped = Localised(plain, locale);
    for (std::size_t at = plain.find('.'); at > front + 3;) {
      at -= 3;
      grouped.insert(at, 1, locale.Group);
    }
    plain = grouped;
  } else {
    plain = Localised(plain, locale);
  }
  Demand(text == plain, "a pattern rounds on fifteen digits: " + text + " is not " + plain);
}

void CheckSingle(float value, NumberLocale locale) {
  if (!std::isfinite(value)) return;
  const NumberText numbers(locale);
  Demand(numbers.ToSingle(numbers.General(value)) == value, "a float is read back as itself");
}

void CheckMoments(const std::string& text) {
  const auto moment = Try([&] { return platform::ToLocalTime(text); });
  if (moment.Value) Demand(platform::DottedText(*moment.Value) == text, "a moment is read back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Script script({data, size});
  const NumberLocale locale = script.OneOf(Locales);
  const std::string_view pattern = script.OneOf(Patterns);
  std::uint64_t bits = 0;
  for (int i = 0; i < 8; ++i) bits = bits << 8U | script.Byte();
  const auto half = static_cast<std::uint32_t>(bits >> 32U);
  CheckDouble(std::bit_cast<double>(bits), locale, pattern);
  // What a recording writes: whole parts of a unit.
  CheckDouble(static_cast<std::int32_t>(half) / 1000.0, locale, pattern);
  CheckSingle(std::bit_cast<float>(half), locale);
  const auto byte = static_cast<std::uint8_t>(bits);
  Demand(platform::HexPairValue(platform::HexByteText(byte)) == byte, "a byte is read back");
  const std::string text = script.Rest();
  CheckTexts(text, locale);
  CheckMoments(text);
  return 0;
}
