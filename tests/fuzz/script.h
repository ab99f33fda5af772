#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace fuzz {

/// The bytes of an input, read from the front as choices of what happens next. Behind the end
/// everything is 0, so that each input means something.
class Script {
 public:
  explicit Script(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  bool Ended() const { return bytes_.empty(); }
  std::uint8_t Byte() {
    if (bytes_.empty()) return 0;
    const std::uint8_t byte = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return byte;
  }
  std::uint16_t Word() {
    const std::uint8_t high = Byte();
    return static_cast<std::uint16_t>(high << 8U | Byte());
  }
  std::size_t Below(std::size_t end) { return Byte() % end; }
  bool Yes() { return (Byte() & 1U) != 0; }
  /// One of several things.
  template <typename Things>
  const auto& OneOf(const Things& things) {
    return things[Below(std::size(things))];
  }
  /// The next bytes, as many as there are.
  std::span<const std::uint8_t> Take(std::size_t count) {
    const auto taken = bytes_.first(std::min(count, bytes_.size()));
    bytes_ = bytes_.subspan(taken.size());
    return taken;
  }
  std::string Text(std::size_t count) {
    const auto taken = Take(count);
    return {taken.begin(), taken.end()};
  }
  std::string Rest() { return Text(bytes_.size()); }

 private:
  std::span<const std::uint8_t> bytes_;
};

}  // namespace fuzz
