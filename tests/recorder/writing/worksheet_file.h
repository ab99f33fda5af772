#pragma once

#include <cstring>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "recorder/recorder_bench.h"

namespace recorder_tests {

/// A worksheet as a reader of its records sees it, written from the table of records.
struct ReadSheet {
  explicit ReadSheet(const std::string& bytes) {
    std::size_t at = 0;
    while (at + 4 <= bytes.size()) {
      const auto word = [&](std::size_t place) {
        return static_cast<unsigned char>(bytes[place]) +
               256 * static_cast<unsigned char>(bytes[place + 1]);
      };
      const int code = word(at);
      const auto length = static_cast<std::size_t>(word(at + 2));
      if (at + 4 + length > bytes.size()) return;
      if (code == 3) ++Cells;
      Codes += std::to_string(code) + " ";
      const std::string data = bytes.substr(at + 4, length);
      if (code == 3) {
        double value = 0;
        std::memcpy(&value, data.data() + 7, sizeof value);
        Numbers[{word(at + 4), word(at + 6)}] = value;
        Looks.insert(data.substr(4, 3));
        LastRow = word(at + 4);
      }
      if (code == 4) Texts.push_back(data.substr(8));
      at += 4 + length;
    }
    Whole = at == bytes.size();
  }

  std::string Codes;
  /// By 0-based row and column, as they stand in the file.
  std::map<std::pair<int, int>, double> Numbers;
  /// Records of a number, also of those that stand in one place.
  std::size_t Cells = 0;
  std::vector<std::string> Texts;
  /// The attribute bytes that cells with numbers have.
  std::set<std::string> Looks;
  int LastRow = -1;
  /// The last record is complete.
  bool Whole = false;
};

class WorksheetFile : public testing::Test {
 protected:
  WorksheetFile() {
    bench.Settings.FileFormat = "EXCEL";
    bench.State.RecordFileName = name;
  }
  ReadSheet Read(const std::string& file) const { return ReadSheet(bench.Content(file)); }
  /// Writes `count` rings of the first stream.
  void Rings(int count) {
    for (int ring = 0; ring < count; ++ring) bench.WriteRing(0, 9 * (ring + 1));
  }

  /// Another tab is entered and the recorder's again.
  static void LeaveTab(RecorderBench& left) {
    left.Acquisition.StopCapture();
    ++left.State.PagesLeft;
    left.Core.Run.ClearModes();
    left.State.RecorderBusy = true;
    left.Main.CWButton3.Value = false;
    left.State.RecorderBusy = false;
  }
  void LeaveTab() { LeaveTab(bench); }

  RecorderBench bench;
  const std::string name = Started + ".xls";
};

}  // namespace recorder_tests
