#include "console/comtrade/sample_rows.h"

#include <bit>
#include <cmath>
#include <limits>

#include "base/failure.h"
#include "base/number_text.h"
#include "platform/services/dialogs.h"

namespace console {

namespace {

constexpr std::int64_t MissingInText = 99'999;

/// The lowest byte first, as the standard has it on any computer.
template <typename Bits>
void AppendBits(std::string& bytes, Bits bits) {
  for (std::size_t i = 0; i < sizeof(Bits); ++i) {
    bytes += static_cast<char>(bits >> (8 * i) & 0xFFU);
  }
}

/// The least integer stands for a missing value.
template <typename Integer, typename Bits>
void AppendInteger(std::string& bytes, double stored) {
  const Integer number =
      std::isnan(stored) ? std::numeric_limits<Integer>::min() : platform::Round<Integer>(stored);
  AppendBits(bytes, static_cast<Bits>(number));
}

void AppendStored(std::string& bytes, ComtradeForm form, double stored) {
  switch (form) {
    case ComtradeForm::Ascii:
      platform::NumberText::AppendGeneral(
          bytes, std::isnan(stored) ? MissingInText : platform::Round<std::int64_t>(stored));
      break;
    case ComtradeForm::Binary:
      AppendInteger<std::int16_t, std::uint16_t>(bytes, stored);
      break;
    case ComtradeForm::Binary32:
      AppendInteger<std::int32_t, std::uint32_t>(bytes, stored);
      break;
    case ComtradeForm::Float32:
      AppendBits(bytes, std::bit_cast<std::uint32_t>(static_cast<float>(stored)));
      break;
  }
}

}  // namespace

void SampleRows::Append(std::string& bytes, std::int64_t number,
                        std::span<const double> stored) const {
  if (number > MostSamples) {
    throw platform::Failure(platform::failure::Overflow,
                            "A COMTRADE file takes no more than 4294967295 samples");
  }
  if (form_ == ComtradeForm::Ascii) {
    AppendLine(bytes, number, stored);
  } else {
    AppendRecord(bytes, number, stored);
  }
}

void SampleRows::AppendLine(std::string& bytes, std::int64_t number,
                            std::span<const double> stored) const {
  platform::NumberText::AppendGeneral(bytes, number);
  bytes += ',';
  platform::NumberText::AppendGeneral(bytes, number - 1);
  for (const double each : stored) {
    bytes += ',';
    AppendStored(bytes, form_, each);
  }
  bytes += platform::Crlf;
}

void SampleRows::AppendRecord(std::string& bytes, std::int64_t number,
                              std::span<const double> stored) const {
  AppendBits(bytes, static_cast<std::uint32_t>(number));
  AppendBits(bytes, static_cast<std::uint32_t>(number - 1));
  for (const double each : stored) AppendStored(bytes, form_, each);
}

std::int64_t SampleRows::BinaryBytes(std::int64_t samples, std::size_t channels) const {
  constexpr std::size_t NumberAndTime = 8;
  const std::size_t value = form_ == ComtradeForm::Binary ? 2 : 4;
  return samples * static_cast<std::int64_t>(NumberAndTime + value * channels);
}

}  // namespace console
