#include <algorithm>

#include "console_scene.h"

namespace console {
namespace {

using namespace std::chrono_literals;
using support::SvFrame;

class ReportCommandScene : public ConsoleScene {};

TEST_F(ReportCommandScene, TellTheNextFrameOfEachStreamAndItsBytes) {
  for (std::uint16_t i = 7; i < 20; ++i) {
    Taps.Send(SvFrame("MU01").Count(i).Raw(0, -12), 250us);
    Taps.Send(SvFrame("MU02").Count(i), 0us);
  }

  EXPECT_EQ(Run({"report", "file.pcap"}), ExitCode::Done);

  const std::string text = Results.str();
  EXPECT_TRUE(
      text.starts_with("Arrived             2024-03-09T14:05:07.000000Z\n"
                       "Structure           whole\n"))
      << text;
  EXPECT_NE(text.find("svID                MU01\nsmpCnt              7\n"), std::string::npos);
  EXPECT_NE(text.find("Value 1             -12, good\n"), std::string::npos);
  EXPECT_NE(text.find("\n0000  01 0C CD 04 00 01 02 00"), std::string::npos);
  EXPECT_EQ(text.find("smpCnt              8"), std::string::npos) << "one frame of each";
  EXPECT_NE(text.find("svID                MU02"), std::string::npos);
}

TEST_F(ReportCommandScene, AFrameThatIsCutIsToldAsFarAsItGoes) {
  support::FrameBytes cut = SvFrame("MU01").Bytes();
  cut.resize(50);
  Taps.Frames.push_back({cut, 1s});
  EXPECT_EQ(Run({"report", "file.pcap"}), ExitCode::Done);
  EXPECT_EQ(Results.str().find("Structure           whole"), std::string::npos);
  EXPECT_NE(Results.str().find("0030  "), std::string::npos);
}

TEST_F(ReportCommandScene, ALineOfJsonForAProgram) {
  Taps.Send(SvFrame("MU01").Count(7), 250us);
  Run({"report", "file.pcap", "--json"});
  EXPECT_EQ(Json().at("arrived"), "2024-03-09T14:05:07.000000Z");
  EXPECT_EQ(Json().at("fields").at(0).at("value"), "whole");
  EXPECT_EQ(Json().at("dump").at(0).get<std::string>().substr(0, 10), "0000  01 0");
}

TEST_F(ReportCommandScene, SendersOfTwoVlansAreTwo) {
  for (std::uint16_t i = 7; i < 20; ++i) {
    Taps.Send(SvFrame("MU01").Count(i), 250us);
    Taps.Send(SvFrame("MU01").Count(i).Vlan(4, 1), 0us);
    Taps.Send(SvFrame("MU01").Count(i).Vlan(i % 2 == 0 ? 4 : 5, 2), 0us);
  }
  Run({"report", "file.pcap", "--json"});
  const std::string text = Results.str();
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3) << "a priority makes no sender";
}

TEST_F(ReportCommandScene, EndsWhereNobodyReadsIt) {
  Taps.IsFile = false;
  Taps.SendRun(SvFrame("MU01"), 0, 4000, 250us);
  Results.setstate(std::ios::badbit);
  const auto begun = Clock.Now();
  EXPECT_EQ(Run({"report", "eth0", "--seconds", "60"}), ExitCode::FileTrouble);
  EXPECT_LT(Clock.Now() - begun, 1s);
}

TEST_F(ReportCommandScene, NothingCame) {
  Taps.Frames.push_back({{1, 2, 3}, 1s});
  EXPECT_EQ(Run({"report", "file.pcap"}), ExitCode::NothingReceived);
  EXPECT_EQ(Notes.str(), "vornik-cli: no frame of sampled values came from file.pcap.\n");
}

}  // namespace
}  // namespace console
