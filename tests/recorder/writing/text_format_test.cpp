#include <array>
#include <cstdio>

#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

/// A value as the C library prints it, which shares no code with the program.
std::string Printed(double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.15g", value);
  return text.data();
}

/// The line of a cell, built from the table of the text file alone.
std::string Line(std::size_t stream, long counter, int ramp, int cell) {
  std::string line = std::to_string(counter) + ";" + std::to_string(ramp);
  for (std::size_t k = 0; k < 8; ++k) line += ";" + Printed(ValueAt(stream, k, cell));
  return line;
}

class TextFile : public testing::Test {
 protected:
  RecorderBench bench;
  const std::string name = Started + ".txt";
};

TEST_F(TextFile, HasALineOfTenFieldsASample) {
  bench.Fill(0, 3990);
  bench.WriteRing(0);

  const std::string content = bench.Content(name);
  ASSERT_TRUE(content.ends_with("\r\n"));
  const std::vector<std::string> lines = Lines(content);
  ASSERT_THAT(lines, SizeIs(4000));
  for (int i = 0; i < 4000; ++i) {
    ASSERT_EQ(lines[static_cast<std::size_t>(i)], Line(0, i, (3990 + i) % 4000, i));
  }
}

TEST_F(TextFile, CountsTheLinesOfTheFirstStreamOn) {
  for (int ring = 0; ring < 3; ++ring) {
    bench.Fill(0, ring);
    bench.WriteRing(0, 9 * (ring + 1));
  }
  const std::vector<std::string> lines = Lines(bench.Content(name));
  ASSERT_THAT(lines, SizeIs(12000));
  EXPECT_EQ(lines[0], Line(0, 0, 0, 0));
  EXPECT_EQ(lines[4000], Line(0, 4000, 1, 0));
  EXPECT_EQ(lines[11999], Line(0, 11999, 1, 3999));
}

TEST_F(TextFile, OfTheSecondStreamFollowsItsCountedBlocks) {
  bench.TakeBoth();
  for (int ring = 0; ring < 4; ++ring) {
    bench.Fill(1, ring);
    bench.WriteRing(1, 9 * (ring + 1));
  }
  const std::vector<std::string> lines = Lines(bench.Content("2_" + name));
  ASSERT_THAT(lines, SizeIs(16000));
  EXPECT_EQ(lines[0], Line(1, 0, 0, 0));
  EXPECT_EQ(lines[3999], Line(1, 3999, 3999, 3999));
  EXPECT_EQ(lines[4000], Line(1, 3600, 1, 0));
  EXPECT_EQ(lines[8000], Line(1, 7200, 2, 0));
  EXPECT_EQ(lines[12000], Line(1, 10800, 3, 0));
}

TEST_F(TextFile, OfTheSecondStreamFollowsTheSizeOfABlock) {
  bench.Present.BaseSamples = 1000;
  bench.WriteRing(1, 3);
  EXPECT_TRUE(bench.Content("2_" + name).starts_with("-600;"));
}

TEST_F(TextFile, OfTheSecondStreamLeavesTheCounterOfTheFirstAlone) {
  bench.WriteRing(1);
  bench.WriteRing(0);
  EXPECT_TRUE(bench.Content(name).starts_with("0;"));
}

TEST_F(TextFile, HasAPrefixWhereTwoStreamsAreRecorded) {
  bench.WriteRing(0);
  bench.WriteRing(1);
  EXPECT_THAT(bench.Names(), ElementsAre("2_" + name, name));
  bench.Files.Stored.clear();
  bench.TakeBoth();
  bench.WriteRing(0);
  bench.WriteRing(1);
  EXPECT_THAT(bench.Names(), ElementsAre("1_" + name, "2_" + name));
}

TEST_F(TextFile, ShowsPointsWhereTheLocaleHasCommas) {
  bench.Numbers = platform::NumberText(platform::NumberLocale{',', '.'});
  bench.Fill(0, 17);
  bench.WriteRing(0);
  const std::vector<std::string> lines = Lines(bench.Content(name));
  EXPECT_EQ(lines[1], Line(0, 1, 18, 1));
  EXPECT_NE(lines[1].find(";-1234.25;"), std::string::npos);
}

TEST_F(TextFile, ReadsBackToTheValuesThatWereStored) {
  for (std::int16_t i = 0; i < 4000; ++i) bench.Rings.RecordChannel[3](i) = i * 0.001 / 7;
  bench.WriteRing(0);
  const std::vector<std::string> lines = Lines(bench.Content(name));
  for (int i = 0; i < 4000; ++i) {
    std::string rest = lines[static_cast<std::size_t>(i)];
    for (int field = 0; field < 5; ++field) rest = rest.substr(rest.find(';') + 1);
    EXPECT_NEAR(std::stod(rest), i * 0.001 / 7, 1e-15 * i);
  }
}

TEST_F(TextFile, IsOneWriteARing) {
  bench.WriteRing(0);
  bench.WriteRing(0);
  EXPECT_EQ(bench.Disk.Writes, 2);
  EXPECT_EQ(bench.Disk.Opens, 2);
  EXPECT_EQ(bench.Disk.Closes, 2);
}

TEST_F(TextFile, CountsFromZeroBehindTheEndOfARecording) {
  bench.WriteRing(0);
  bench.Main.CWButton3.Visible = false;
  bench.Writing.Samples.WriteRecordBlock(7);
  EXPECT_EQ(bench.Disk.Opens, 1) << "it touches no file";
  EXPECT_FALSE(bench.Main.CWButton3.Visible) << "nor the button";
  bench.Files.Stored.clear();
  bench.WriteRing(0);
  EXPECT_TRUE(bench.Content(name).starts_with("0;"));
}

TEST_F(TextFile, CountsOnWithoutThatEnd) {
  bench.WriteRing(0);
  bench.Files.Stored.clear();
  bench.WriteRing(0);
  EXPECT_TRUE(bench.Content(name).starts_with("4000;"));
}

}  // namespace
}  // namespace recorder_tests
