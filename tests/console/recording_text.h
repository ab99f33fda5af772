#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace console {

/// The counters of so many samples from one on.
inline std::vector<std::int64_t> Counters(std::int64_t first, std::int64_t samples,
                                          std::int64_t round) {
  std::vector<std::int64_t> counters;
  for (std::int64_t i = 0; i < samples; ++i) counters.push_back((first + i) % round);
  return counters;
}

/// The lines of a text recording, whose values stay the same.
inline std::string RecordingText(const std::vector<std::int64_t>& counters) {
  std::string text;
  std::int64_t line = 0;
  for (const std::int64_t counter : counters) {
    text += std::to_string(line++) + ';' + std::to_string(counter) +
            ";533.239;-103.088;-430.151;1.6;58.33036;29.98096;-88.31132;0.08725\r\n";
  }
  return text;
}

inline void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

}  // namespace console
