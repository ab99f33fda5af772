#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace fuzz {

/// A second reading of the older format of capture files, which shares no code with the program nor
/// with its library. It knows sound records alone and gives up at the first odd one.
class PlainCapture {
 public:
  struct Record {
    std::string_view Bytes;
    std::uint32_t Length = 0;
  };

  explicit PlainCapture(std::string_view file) : rest_(file) {
    if (file.size() < HeadSize) return;
    for (const bool swapped : {false, true}) {
      swapped_ = swapped;
      const std::uint32_t magic = Word(0);
      if (magic == 0xA1B2C3D4U || magic == 0xA1B23C4DU) {
        snapped_ = Word(16);
        // The library has limits of its own for how long a frame is.
        sound_ =
            Half(4) == 2 && Half(6) == 4 && Word(20) == 1 && snapped_ >= 64 && snapped_ <= 65535;
        break;
      }
    }
    rest_.remove_prefix(HeadSize);
  }

  /// Whether it is a file of this format at all.
  bool Sound() const { return sound_; }
  /// The next record; nothing at the end and at an odd one.
  std::optional<Record> Next() {
    if (!sound_ || rest_.size() < RecordSize) return std::nullopt;
    const std::uint32_t stored = Word(8);
    const std::uint32_t length = Word(12);
    if (stored > snapped_ || stored > length || stored > rest_.size() - RecordSize) {
      return std::nullopt;
    }
    const Record record{rest_.substr(RecordSize, stored), length};
    rest_.remove_prefix(RecordSize + stored);
    return record;
  }

 private:
  static constexpr std::size_t HeadSize = 24;
  static constexpr std::size_t RecordSize = 16;

  std::uint32_t At(std::size_t place) const { return static_cast<std::uint8_t>(rest_[place]); }
  /// In this machine's order, or the other one.
  std::uint32_t Half(std::size_t place) const {
    const std::uint32_t a = At(place);
    const std::uint32_t b = At(place + 1);
    return swapped_ ? a << 8U | b : b << 8U | a;
  }
  std::uint32_t Word(std::size_t place) const {
    const std::uint32_t a = Half(place);
    const std::uint32_t b = Half(place + 2);
    return swapped_ ? a << 16U | b : b << 16U | a;
  }

  std::string_view rest_;
  std::uint32_t snapped_ = 0;
  bool swapped_ = false;
  bool sound_ = false;
};

}  // namespace fuzz
