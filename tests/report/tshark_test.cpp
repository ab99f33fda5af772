// The analysis of well-formed frames compared with what tshark reads in them.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "report/analysis_bench.h"
#include "support/real_files.h"

namespace {

using support::FrameBytes;
using support::SvFrame;
namespace row = report_tests::row;

/// What both sides tell of a frame, as the report writes it.
struct Fields {
  std::string Destination;
  std::string Source;
  std::string Ethertype;
  std::string AppId;
  std::string Id;
  std::string Count;
  std::string Synch;

  bool operator==(const Fields&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const Fields& fields) {
    return out << fields.Destination << ' ' << fields.Source << ' ' << fields.Ethertype << ' '
               << fields.AppId << " \"" << fields.Id << "\" " << fields.Count << ' '
               << fields.Synch;
  }
};

bool HasTshark() {
  return std::system("tshark --version > /dev/null 2>&1") == 0;
}

std::string Upper(std::string text) {
  for (char& letter : text) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  return text;
}

/// A number as tshark prints it, with or without its "0x", as four digits.
std::string FourDigits(const std::string& number) {
  char digits[8] = {};
  std::snprintf(digits, sizeof digits, "0x%04lX", std::strtoul(number.c_str(), nullptr, 0));
  return digits;
}

class ReadByTshark : public report_tests::Analysis {
 protected:
  void SetUp() override {
    if (!HasTshark()) GTEST_SKIP() << "tshark is not on this computer";
  }

  /// Compares both readings of each frame, after `adapt` has put right where the report looks.
  void Compare(const std::vector<FrameBytes>& frames, const std::function<void(Fields&)>& adapt) {
    std::vector<Fields> read = Read(frames);
    ASSERT_EQ(read.size(), frames.size());
    for (std::size_t i = 0; i < frames.size(); ++i) {
      adapt(read[i]);
      EXPECT_EQ(Report(frames[i]), read[i]) << "frame " << i;
    }
  }

 private:
  /// What tshark reads in the frames, one line a frame.
  std::vector<Fields> Read(const std::vector<FrameBytes>& frames) const {
    Save(frames);
    const std::string command =
        "tshark -r " + folder_.File("frames.pcap") +
        " -T fields -E separator=, -e eth.dst -e eth.src -e eth.type -e sv.appid -e sv.svID"
        " -e sv.smpCnt -e sv.smpSynch > " +
        folder_.File("fields") + " 2> /dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
    std::vector<Fields> all;
    std::ifstream lines(folder_.File("fields"));
    for (std::string line; std::getline(lines, line);) all.push_back(Taken(line));
    return all;
  }
  /// What the report tells of a frame.
  Fields Report(const FrameBytes& frame) {
    main.Label8[row::Synchronisation].Caption = "as it was";
    Analyse(frame);
    const std::string synch = Row(row::Synchronisation);
    return {Row(row::Destination),
            Row(row::Source),
            Row(row::Ethertype),
            Row(row::AppId),
            Row(row::StationId),
            Row(row::SampleCount),
            synch.substr(0, synch.find(';'))};
  }
  static Fields Taken(const std::string& line) {
    std::istringstream words(line);
    const auto next = [&words] {
      std::string word;
      std::getline(words, word, ',');
      return word;
    };
    Fields fields;
    fields.Destination = Upper(next());
    fields.Source = Upper(next());
    fields.Ethertype = FourDigits(next());
    fields.AppId = FourDigits(next());
    fields.Id = next();
    fields.Count = next();
    fields.Synch = "value=" + next();
    return fields;
  }
  /// Writes a capture file of the older format, in the byte order of this computer.
  void Save(const std::vector<FrameBytes>& frames) const {
    std::ofstream file(folder_.File("frames.pcap"), std::ios::binary);
    const auto put = [&file](std::initializer_list<std::uint32_t> numbers) {
      for (const std::uint32_t number : numbers) {
        file.write(reinterpret_cast<const char*>(&number), sizeof number);
      }
    };
    // Version 2.4, frames of up to 65535 bytes, Ethernet.
    put({0xA1B2C3D4U, 0x00040002U, 0, 0, 65535, 1});
    for (const FrameBytes& frame : frames) {
      const auto size = static_cast<std::uint32_t>(frame.size());
      put({0, 0, size, size});
      file.write(reinterpret_cast<const char*>(frame.data()), size);
    }
  }

  support::TemporaryFolder folder_;
};

/// Frames of many senders, whose addresses, application, counter and synchronisation all differ. No
/// counter holds the digits of the tag behind it, by which the report would be misled.
std::vector<FrameBytes> ManySenders(bool tagged) {
  std::vector<FrameBytes> frames;
  int number = 0;
  for (const char* id : {"MU01", "A", "SUBSTATION_4/BAY.12/MU", "xxxxMUnn01", "Feeder 7"}) {
    for (const int count : {0, 1, 255, 256, 3999}) {
      SvFrame frame = SvFrame(id)
                          .Count(static_cast<std::uint16_t>(count))
                          .AllRaw(number * 1000)
                          .Channels(static_cast<std::size_t>(number) % 3 + 7);
      frame.Synch(static_cast<std::uint8_t>(number % 3));
      if (tagged) frame.Tagged();
      frames.push_back(frame.Bytes());
      FrameBytes& bytes = frames.back();
      bytes[5] = static_cast<std::uint8_t>(number);
      bytes[6] = 0x0A;
      bytes[11] = static_cast<std::uint8_t>(0xFF - number);
      bytes[tagged ? 19 : 15] = static_cast<std::uint8_t>(number * 5);
      ++number;
    }
  }
  return frames;
}

TEST_F(ReadByTshark, AFrameHasTheFieldsOfTheReport) {
  Compare(ManySenders(false), [](Fields&) {});
}

TEST_F(ReadByTshark, ATaggedFrameHasTheFieldsOfTheReportButForItsApplication) {
  // The tag stands where the report looks for the ethertype, and so its value for the application.
  Compare(ManySenders(true), [](Fields& read) {
    EXPECT_EQ(read.Ethertype, "0x8100");
    read.AppId = "0x8000";
  });
}

}  // namespace
