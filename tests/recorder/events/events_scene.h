#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "recorder/recorder_bench.h"

namespace recorder_tests {

using std::chrono_literals::operator""us;
using support::SvFrame;

inline constexpr int Ring = 4000;

/// A recording on a bus in the hands of the test, and the file of its events.
class RecordedEvents : public testing::Test {
 protected:
  void Record(const std::string& format = "TXT") {
    bench.Run(format);
    Pass(1);
  }
  /// So many frames of each sender come, at the pace of 4000 a second.
  void Come(int frames) {
    for (int i = 0; i < frames; ++i) {
      for (const char* id : senders) {
        SvFrame frame = SvFrame(id).Count(static_cast<std::uint16_t>(sent % 4000)).AllRaw(1000);
        bench.Receive(frame.Synch(synch).Bytes());
      }
      Pass(1);
    }
  }
  /// So many are sent and do not come.
  void Pass(int frames) {
    sent += frames;
    bench.Clock.Advance(frames * 250us);
  }
  void Meet(int frame) { bench.Receive(support::PlainFrame(frame % 4000)); }

  /// The lines of the file, but for the heading.
  std::vector<std::string> All() const {
    std::vector<std::string> lines = Lines(bench.Content(Name));
    EXPECT_EQ(lines.empty() ? "" : lines.front(), "time;stream;line;event;count;figures");
    if (!lines.empty()) lines.erase(lines.begin());
    return lines;
  }
  /// The same without the time, and without those that begin and end a file.
  std::vector<std::string> Happened() const {
    std::vector<std::string> events;
    for (const std::string& line : All()) {
      const auto is = [&](const char* what) { return line.find(what) != std::string::npos; };
      if (is(";start;") || is(";stream met;") || is(";total;") || is(";end;")) continue;
      events.push_back(line.substr(line.find(';') + 1));
    }
    return events;
  }
  std::string Line(const std::string& event) const {
    for (const std::string& line : All()) {
      if (line.find(";" + event + ";") != std::string::npos) return line;
    }
    return "none";
  }

  static inline const std::string Name = "Events " + Started + ".csv";
  RecorderBench bench;
  std::vector<const char*> senders{"MU01"};
  int sent = 0;
  std::uint8_t synch = 2;
};

}  // namespace recorder_tests
