#include <array>
#include <cstdio>

#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

std::string Printed(const char* form, double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), form, value);
  return text.data();
}

/// A line of the data file, written from the table of its fields. Both streams show the values of
/// the first.
std::string DataLine(std::size_t stream, int number, int cell) {
  std::string line = std::to_string(number) + "," + Printed("%.15g", number / 4.0);
  for (std::size_t k = 0; k < 8; ++k) {
    line += "," + Printed(stream == 0 ? "%.3f" : "%.15g", ValueAt(0, k, cell));
  }
  return line;
}

/// The first piece of the configuration, written from the tables of its lines.
std::vector<std::string> FirstPiece(const std::string& letter,
                                    const std::string& frequency = "50") {
  return {"MU01,Vornik 2.3.5,1999",
          "8,8A,0D",
          letter + "1,MU01:IA,Ar,Current1,A,1,0,0,0,0,500000,1,1,P",
          letter + "2,MU01:IB,Ar,Current2,A,1,0,0,0,0,500000,1,1,P",
          letter + "3,MU01:IC,Ar,Current3,A,1,0,0,0,0,500000,1,1,P",
          letter + "4,MU01:IN,Ar,CurrentN,A,1,0,0,0,0,500000,1,1,P",
          letter + "5,MU01:UA,Ar,Voltage1,kV,1000,0,0,0,0,1000,1,1,P",
          letter + "6,MU01:UB,Ar,Voltage2,kV,1000,0,0,0,0,1000,1,1,P",
          letter + "7,MU01:UC,Ar,Voltage3,kV,1000,0,0,0,0,1000,1,1,P",
          letter + "8,MU01:UN,Ar,VoltageN,kV,1000,0,0,0,0,1000,1,1,P",
          frequency,
          "1"};
}

std::vector<std::string> LastPiece(const std::string& rates) {
  return {rates, "09/03/2024,14:05:07.000000", "09/03/2024,14:05:07.000000", "ASCII", "1000"};
}

std::vector<std::string> operator+(std::vector<std::string> a, const std::vector<std::string>& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

class ComtradeFiles : public testing::Test {
 protected:
  ComtradeFiles() {
    bench.Settings.FileFormat = "COMTRADE";
    bench.State.RecordFileName = Started + ".dat";
  }
  std::vector<std::string> Config(const std::string& prefix = "") const {
    return Lines(bench.Content(prefix + Started + ".cfg"));
  }
  std::vector<std::string> Data(const std::string& prefix = "") const {
    return Lines(bench.Content(prefix + Started + ".dat"));
  }

  RecorderBench bench;
};

TEST_F(ComtradeFiles, HaveALineASampleInTheForm) {
  bench.Fill(0);
  bench.WriteRing(0);
  const std::vector<std::string> lines = Data();
  ASSERT_THAT(lines, SizeIs(4000));
  for (int i = 0; i < 4000; ++i) {
    ASSERT_EQ(lines[static_cast<std::size_t>(i)], DataLine(0, i, i));
  }
  EXPECT_TRUE(bench.Content(Started + ".dat").ends_with("\r\n"));
}

TEST_F(ComtradeFiles, NumberTheLinesByTheCountedBlocks) {
  bench.Fill(0);
  for (int ring = 0; ring < 3; ++ring) bench.WriteRing(0, 9 * (ring + 1));
  const std::vector<std::string> lines = Data();
  ASSERT_THAT(lines, SizeIs(12000));
  EXPECT_EQ(lines[4000], DataLine(0, 3600, 0));
  EXPECT_EQ(lines[7999], DataLine(0, 7599, 3999));
  EXPECT_EQ(lines[8000], DataLine(0, 7200, 0));
}

TEST_F(ComtradeFiles, OfTheSecondStreamShowTheRingOfTheFirst) {
  bench.TakeBoth();
  bench.Fill(0);
  bench.Fill(1);
  bench.State.BlockCount = 18;
  bench.WriteRing(1, 9);
  const std::vector<std::string> lines = Data("2_");
  ASSERT_THAT(lines, SizeIs(4000));
  EXPECT_EQ(lines[0], DataLine(1, 3600, 0));
  EXPECT_EQ(lines[1], DataLine(1, 3601, 1));
  EXPECT_EQ(lines[3999], DataLine(1, 7599, 3999));
}

TEST_F(ComtradeFiles, BeginTheConfigurationWithTheFirstRing) {
  bench.WriteRing(0);
  EXPECT_EQ(Config(), FirstPiece(""));
  bench.WriteRing(0, 18);
  EXPECT_EQ(Config(), FirstPiece(""));
}

TEST_F(ComtradeFiles, HoldTheStationAsItIsAlsoWhereThatBreaksALine) {
  bench.Settings.FilterContent[0] = "BAY 4,5\n";
  bench.WriteRing(0);
  EXPECT_TRUE(bench.Content(Started + ".cfg")
                  .starts_with("BAY 4,5\n,Vornik 2.3.5,1999\r\n8,8A,0D\r\n1,BAY 4,5\n:IA,Ar,"));
}

TEST_F(ComtradeFiles, EmptyAConfigurationThatWasThere) {
  bench.Files.Stored[RecorderBench::Path(Started + ".cfg")] = "older\r\n";
  bench.WriteRing(0);
  EXPECT_EQ(Config(), FirstPiece(""));
}

TEST_F(ComtradeFiles, OfTwoStreamsHaveAConfigurationEach) {
  bench.TakeBoth();
  bench.WriteRing(0);
  bench.WriteRing(1);
  EXPECT_EQ(Config("1_"), FirstPiece(""));
  EXPECT_EQ(Config("2_"), FirstPiece("A"));
}

TEST_F(ComtradeFiles, OfTheSecondStreamHaveNoConfigurationWhereTheFirstWentOn) {
  bench.TakeBoth();
  bench.WriteRing(0, 10);
  bench.WriteRing(1, 9);
  EXPECT_THAT(bench.Names(), ElementsAre("1_" + Started + ".dat", "2_" + Started + ".dat"));
}

TEST_F(ComtradeFiles, EndTheConfigurationWithTheStop) {
  bench.Run("COMTRADE");
  bench.Frames(4000 + 2000);
  bench.Stop();
  EXPECT_EQ(Config(), FirstPiece("") + LastPiece("4000,5600"));
  EXPECT_THAT(Data(), SizeIs(4000));
  EXPECT_TRUE(bench.Dialogs.Shown.empty());
}

TEST_F(ComtradeFiles, OfTwoStreamsEndInAThirdConfiguration) {
  bench.TakeBoth();
  bench.WriteRing(0);
  bench.WriteRing(1);
  bench.Writing.Comtrade.FinishComtradeConfig();
  EXPECT_EQ(Config("1_"), FirstPiece(""));
  EXPECT_EQ(Config("2_"), FirstPiece("A"));
  EXPECT_EQ(Config(), LastPiece("4000,3600"));
}

TEST_F(ComtradeFiles, FollowTheFrequencyInTwoFieldsAlone) {
  bench.Settings.BaseFrequency = 60;
  bench.Fill(0);
  bench.WriteRing(0);
  bench.State.BlockCount = 18;
  bench.Writing.Comtrade.FinishComtradeConfig();
  EXPECT_EQ(Config(), FirstPiece("", "60") + LastPiece("4800,7200"));
  EXPECT_EQ(Data()[3], DataLine(0, 3, 3));
}

TEST_F(ComtradeFiles, WithBlocksOfAnotherSizeHaveTheLastPieceAlone) {
  bench.Present.BaseSamples = 500;
  bench.WriteRing(0, 7);
  bench.Writing.Comtrade.FinishComtradeConfig();
  EXPECT_EQ(Config(), LastPiece("4000,2800"));
  EXPECT_TRUE(Data()[0].starts_with("-100,-25,"));
}

TEST_F(ComtradeFiles, ShowNamesAsTheyStand) {
  bench.Settings.FilterContent[0] = "";
  bench.Settings.ChannelName[0] = "I,A";
  bench.Settings.ChannelName[1] = "Ü";
  bench.WriteRing(0);
  EXPECT_EQ(Config()[0], ",Vornik 2.3.5,1999");
  EXPECT_EQ(Config()[2], "1,:I,A,Ar,Current1,A,1,0,0,0,0,500000,1,1,P");
  EXPECT_EQ(Config()[3], "2,:\xDC,Ar,Current2,A,1,0,0,0,0,500000,1,1,P");
}

TEST_F(ComtradeFiles, ShowPointsWhereTheLocaleHasCommasButForTheFrequency) {
  bench.Numbers = platform::NumberText(platform::NumberLocale{',', '.'});
  bench.Settings.BaseFrequency = 16.75F;
  bench.Fill(0);
  bench.WriteRing(0);
  bench.WriteRing(1);
  bench.Writing.Comtrade.FinishComtradeConfig();
  EXPECT_EQ(Data()[1], DataLine(0, 1, 1));
  EXPECT_EQ(Data("2_")[1], DataLine(1, 1, 1));
  EXPECT_EQ(Config()[10], "16,75");
  EXPECT_EQ(Config()[12], "1340,3600");
}

TEST_F(ComtradeFiles, AreOneWriteARing) {
  bench.WriteRing(0, 18);
  EXPECT_EQ(bench.Disk.Writes, 1);
  EXPECT_EQ(bench.Disk.Closes, 1);
}

TEST_F(ComtradeFiles, WithoutADateInTheirNameAreNotEnded) {
  for (const char* name : {"SV record dd.mm.yyyy hh-MM-ss.dat (after 'RUN')", "a.dat", "nothing",
                           "SV record 31.02.2024 14-05-07.dat"}) {
    bench.State.RecordFileName = name;
    EXPECT_THROW(bench.Writing.Comtrade.FinishComtradeConfig(), platform::Failure) << name;
    EXPECT_THAT(bench.Names(), SizeIs(0)) << name;
  }
}

}  // namespace
}  // namespace recorder_tests
