#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace config {

/// The texts that mark the frames of the first and of the second stream. Each frame is searched for
/// them, so that who searches learns by one number whether he still has the latest ones.
class StreamTexts {
 public:
  using value_type = std::string;
  using const_iterator = std::array<std::string, 2>::const_iterator;

  StreamTexts() = default;
  StreamTexts(std::string first, std::string second)
      : texts_{std::move(first), std::move(second)} {}
  StreamTexts(const StreamTexts&) = default;
  StreamTexts& operator=(const StreamTexts& other) {
    texts_ = other.texts_;
    ++changes_;
    return *this;
  }
  ~StreamTexts() = default;

  const std::string& operator[](std::size_t stream) const { return texts_[stream]; }
  /// Whoever reaches for a text in this way may write it, which counts as a change.
  std::string& operator[](std::size_t stream) {
    ++changes_;
    return texts_[stream];
  }
  /// How often a text may have changed.
  std::uint32_t Changes() const { return changes_; }

  std::size_t size() const { return texts_.size(); }
  const_iterator begin() const { return texts_.begin(); }
  const_iterator end() const { return texts_.end(); }

 private:
  std::array<std::string, 2> texts_;
  std::uint32_t changes_ = 1;
};

}  // namespace config
