#pragma once

#include <array>
#include <cstdlib>
#include <string>

#include "support/sv_frame.h"

namespace report_tests {

/// A second reading of a frame, as plain as can be and sharing no code with the program: texts of
/// digits that are cut and searched by 1-based positions.
class NaiveReport {
 public:
  explicit NaiveReport(const support::FrameBytes& frame) {
    for (const int byte : frame) {
      hex_ += "0123456789ABCDEF"[byte / 16];
      hex_ += "0123456789ABCDEF"[byte % 16];
    }
    int position = InStr(1, "8001");
    Sequence = "lenght: " + Mid(position + 8);
    FirstAsdu = "lenght: " + Mid(position + 12);
    position = InStr(position + 2, "80");
    const int length = Value(Mid(position + 2));
    for (int k = 2; k <= 2 * length; k += 2) Id += static_cast<char>(Value(Mid(position + 2 + k)));
    position = InStr(position + 2, "82") + 2;
    SampleCount = std::to_string(Value(Mid(position + 2)) * 256 + Value(Mid(position + 4)));
    position = InStr(position + 2, "85") + 2;
    const std::string digits = Mid(position + 2);
    const std::size_t decimals = digits.find_first_not_of("0123456789");
    Synch = std::atoi(digits.substr(0, decimals).c_str());
    for (int line = 0; line < 10; ++line) {
      std::string text = std::to_string(line) + "0: ";
      for (int j = 0; j < 16; ++j) {
        const std::string pair = Mid(2 * j + 1 + 32 * line);
        text += (pair.empty() ? "00" : pair) + " ";
      }
      Dump[static_cast<std::size_t>(line)] = text;
    }
  }

  std::string Sequence;
  std::string FirstAsdu;
  /// In the code page of the frame.
  std::string Id;
  std::string SampleCount;
  int Synch = 0;
  /// The lines without their characters.
  std::array<std::string, 10> Dump;

 private:
  std::string Mid(int position) const {
    std::string pair;
    for (const int at : {position, position + 1}) {
      if (at <= static_cast<int>(hex_.size())) pair += hex_[static_cast<std::size_t>(at - 1)];
    }
    return pair;
  }
  int InStr(int start, const std::string& digits) const {
    for (int at = start; at + static_cast<int>(digits.size()) - 1 <= static_cast<int>(hex_.size());
         ++at) {
      if (hex_.compare(static_cast<std::size_t>(at - 1), digits.size(), digits) == 0) return at;
    }
    return 0;
  }
  static int Value(const std::string& pair) {
    const std::string whole = (pair + "00").substr(0, 2);
    return static_cast<int>(std::strtol(whole.c_str(), nullptr, 16));
  }

  std::string hex_;
};

}  // namespace report_tests
