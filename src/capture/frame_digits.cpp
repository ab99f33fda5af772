#include "capture/frame_digits.h"

#include <algorithm>

#include "base/hex_text.h"

namespace packetroutines {

namespace {

constexpr std::size_t DigitsOfByte = 2;

}  // namespace

void FrameDigits::Take(std::span<const std::uint8_t> bytes) {
  platform::WriteHexText(bytes, text_);
}

void FrameDigits::Take(const PacketBytes& bytes) {
  Take({bytes.Run(1, bytes.Upper()), static_cast<std::size_t>(bytes.Upper())});
}

std::size_t FrameDigits::Find(std::string_view digits, std::size_t from) const {
  const std::size_t at = text_.find(digits, from - 1);
  return at == std::string::npos ? 0 : at + 1;
}

std::string_view FrameDigits::Pair(std::size_t position) const {
  const std::string_view text = text_;
  return text.substr(std::min(position - 1, text.size()), DigitsOfByte);
}

std::string FrameDigits::Pairs(std::size_t firstByte, std::size_t count) const {
  std::string pairs;
  for (std::size_t byte = firstByte; byte < firstByte + count; ++byte) {
    if (byte > firstByte) pairs += ':';
    pairs += Pair((byte - 1) * DigitsOfByte + 1);
  }
  return pairs;
}

std::string FrameDigits::StationId(std::size_t stationTag) const {
  const std::size_t lengthAt = stationTag + DigitsOfByte;
  const auto length = static_cast<std::size_t>(platform::HexPairValue(Pair(lengthAt)));
  std::string id;
  for (std::size_t k = 1; k <= length; ++k) {
    id += static_cast<char>(platform::HexPairValue(Pair(lengthAt + k * DigitsOfByte)));
  }
  return id;
}

std::string FrameDigits::WholeStationId(std::size_t stationTag) const {
  std::string id = StationId(stationTag);
  const std::size_t before = std::min(stationTag + 2 * DigitsOfByte - 1, text_.size());
  id.resize(std::min(id.size(), (text_.size() - before) / DigitsOfByte));
  return id;
}

}  // namespace packetroutines
