#pragma once

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace fuzz {

/// A second reading of a text recording, as plain as can be: its lines, their counters, and the
/// gaps word by word.
class PlainRecording {
 public:
  explicit PlainRecording(const std::string& text) {
    std::string line;
    for (std::size_t at = 0; at < text.size(); ++at) {
      if (text[at] != '\r') {
        line += text[at];
        continue;
      }
      lines_.push_back(std::move(line));
      line.clear();
      if (at + 1 < text.size() && text[at + 1] == '\n') ++at;
    }
    Rest = line;
  }

  const std::vector<std::string>& Lines() const { return lines_; }
  /// What stands behind the last whole line.
  std::string Rest;

  /// The field of a line, from 0 on; nothing where the line ends before it does.
  static std::optional<std::string> Field(const std::string& line, int number) {
    std::size_t begin = 0;
    for (; number > 0; --number) {
      begin = line.find(';', begin);
      if (begin == std::string::npos) return std::nullopt;
      ++begin;
    }
    return line.substr(begin, line.find(';', begin) - begin);
  }

  /// The counters; nothing where one of them is written in another way than by a few digits.
  std::optional<std::vector<std::int32_t>> Counters() const {
    std::vector<std::int32_t> counters;
    for (const std::string& line : lines_) {
      const auto field = Field(line, 1);
      if (!field || !Field(line, 2) || field->empty() || field->size() > 6) return std::nullopt;
      if (field->find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
      counters.push_back(std::atoi(field->c_str()));
    }
    return counters;
  }

  /// Samples that are missing where the counter goes such a round; nothing where it leaves the
  /// round, or where they are too many.
  static std::optional<std::int32_t> Lost(const std::vector<std::int32_t>& counters,
                                          std::int32_t round) {
    constexpr std::int32_t Most = 2'000'000;
    std::int32_t lost = 0;
    std::int32_t expected = counters.empty() ? 0 : counters[0];
    if (expected >= 32767) return std::nullopt;
    for (const std::int32_t counter : counters) {
      if (counter >= round && counter != expected) return std::nullopt;
      while (expected != counter) {
        if (++expected > round - 1) expected = 0;
        if (++lost > Most) return std::nullopt;
      }
      if (++expected > round - 1) expected = 0;
    }
    if (lost == Most) return std::nullopt;
    return lost;
  }

 private:
  std::vector<std::string> lines_;
};

}  // namespace fuzz
