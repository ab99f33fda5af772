#include "recorder/reading/quick_view_rows.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/failure.h"
#include "base/number_text.h"

namespace subroutines {

namespace {

constexpr char FieldSign = ';';
/// Whole numbers up to here are exact in a 64-bit float, and so are these powers of ten: a number
/// of such digits is one division of two exact values, which rounds correctly.
constexpr std::uint64_t LargestExact = std::uint64_t{1} << 53U;
/// More digits could overflow before they are compared with the limit.
constexpr std::ptrdiff_t MostDigits = 19;
constexpr std::array<double, MostDigits + 1> PowersOfTen = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,
    1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19};

float ToSingle(double value) {
  if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
    throw platform::Failure(platform::failure::Overflow);
  }
  return static_cast<float>(value);
}

/// Walks through the fields of a line.
class Fields {
 public:
  explicit Fields(std::string_view line) : at_(line.data()), end_(at_ + line.size()) {}

  void Skip() {
    at_ = std::find(at_, end_, FieldSign);
    if (at_ != end_) ++at_;
  }

  /// The number of the next field, up to its sign or, for the last one, up to the end of the line.
  template <bool Last>
  float Number() {
    const char* at = at_;
    const bool negative = at != end_ && *at == '-';
    if (negative) ++at;
    const char* const first = at;
    std::uint64_t digits = 0;
    at = Digits(at, digits);
    std::ptrdiff_t count = at - first;
    std::size_t fraction = 0;
    if (at != end_ && *at == '.') {
      const char* const point = ++at;
      at = Digits(at, digits);
      fraction = static_cast<std::size_t>(at - point);
      count = at - first - 1;
    }
    const bool ended = Last ? at == end_ : at != end_ && *at == FieldSign;
    if (!ended || count > MostDigits || digits > LargestExact) return Odd<Last>();
    at_ = Last ? at : at + 1;
    const double magnitude = static_cast<double>(digits) / PowersOfTen[fraction];
    return static_cast<float>(negative ? -magnitude : magnitude);
  }

 private:
  const char* Digits(const char* at, std::uint64_t& number) const {
    for (; at != end_ && *at >= '0' && *at <= '9'; ++at) {
      number = number * 10 + static_cast<std::uint64_t>(*at - '0');
    }
    return at;
  }

  /// A field that is written in another way.
  template <bool Last>
  float Odd() {
    const char* const begin = at_;
    const char* const sign = Last ? end_ : std::find(at_, end_, FieldSign);
    at_ = sign == end_ ? end_ : sign + 1;
    const std::string_view field(begin, static_cast<std::size_t>(sign - begin));
    return ToSingle(platform::NumberText::Leading(field));
  }

  const char* at_;
  const char* end_;
};

}  // namespace

void QuickViewRows::Rebuild(std::int32_t rows) {
  cells_.Redim(static_cast<std::size_t>(rows) * Channels);
  rows_ = static_cast<std::size_t>(rows);
}

void QuickViewRows::ParseRecordLine(std::string_view line, std::int32_t row) {
  Fields fields(line);
  fields.Skip();
  fields.Skip();
  std::size_t cell = static_cast<std::size_t>(row);
  for (std::size_t channel = 0; channel + 1 < Channels; ++channel, cell += rows_) {
    cells_[cell] = fields.Number<false>();
  }
  cells_[cell] = fields.Number<true>();
}

}  // namespace subroutines
