// The field "By its structure" of the Report view.

#include "report/frame_structure.h"

#include <gmock/gmock.h>

#include <string>

#include "support/scene.h"

namespace {

using support::FrameBytes;
using support::SvFrame;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* Same = "The rows tell the same.\n\n";

class ReportByStructure : public ::testing::Test {
 protected:
  ReportByStructure() {
    scene.Start();
    scene.Select(forms::tab::Report);
  }
  /// A run that is answered by two frames, of which the first tells the length.
  void Run(const FrameBytes& frame) {
    main.Command2.Value = true;
    scene.Receive(frame);
    scene.Receive(frame);
  }
  std::string Told() const { return main.Structure.Text; }
  /// What stands in front of the fields.
  std::string Differs() const { return Told().substr(0, Told().find("\n\n") + 1); }

  support::Scene scene;
  forms::Main& main = scene.Main;
};

TEST_F(ReportByStructure, TellsWhatItIsForUntilARunHasItsFrame) {
  EXPECT_EQ(Told(), "RUN tells here what a frame holds by its structure.");
  EXPECT_FALSE(main.StructureDump.Visible);
  main.Command2.Value = true;
  scene.Receive(SvFrame("MU01").Bytes());
  EXPECT_EQ(Told(), "RUN tells here what a frame holds by its structure.");
}

TEST_F(ReportByStructure, TellsAllFieldsOfAFrameTheRowsAgreeWith) {
  const FrameBytes frame = SvFrame("MU01").Channels(1).Count(12).Raw(0, -5).Quality(0, 3).Bytes();
  const std::string bytes = std::to_string(frame.size());
  Run(frame);
  EXPECT_THAT(Told(), StartsWith(std::string(Same) + "Arrived\t"));
  EXPECT_THAT(Told(), HasSubstr("\nStructure\twhole\nFrame\t" + bytes + " bytes\n"));
  EXPECT_THAT(Told(), HasSubstr("\nnoASDU\t1\n\nASDU 1\nsvID\tMU01\nsmpCnt\t12\n"));
  EXPECT_THAT(Told(), HasSubstr("\nValue 1\t-5, questionable (0x00000003)\n"));
}

TEST_F(ReportByStructure, TellsWhenTheFrameArrivedToTheMillisecond) {
  main.Command2.Value = true;
  scene.Receive(SvFrame("MU01").Bytes());
  scene.Elapse(1s + 7ms);
  const auto now = scene.Clock.WallTime();
  scene.Receive(SvFrame("MU01").Bytes());
  const auto second = std::chrono::floor<std::chrono::seconds>(now);
  const auto millis = std::chrono::floor<std::chrono::milliseconds>(now - second).count();
  std::string digits = std::to_string(1000 + millis);
  digits.front() = '.';
  EXPECT_THAT(Told(), HasSubstr("Arrived\t" + platform::NumericText(scene.Calendar.At(second)) +
                                digits + "\n"));
}

TEST_F(ReportByStructure, DumpsTheFrameBeyondTheRows) {
  const FrameBytes frame = SvFrame("MU01").Asdus(8).Bytes();
  ASSERT_GT(frame.size(), 500U);
  Run(frame);
  EXPECT_TRUE(main.StructureDump.Visible);
  const std::string dump = main.StructureDump.Text;
  EXPECT_THAT(dump, StartsWith("0000  01 0C CD 04"));
  EXPECT_EQ(static_cast<std::size_t>(std::count(dump.begin(), dump.end(), '\n')),
            (frame.size() + 15) / 16);
}

TEST_F(ReportByStructure, SaysFirstWhatATagMisleadsTheRowsTo) {
  Run(SvFrame("MU01").Vlan(4, 1).Count(300).Synch(1).Bytes());
  EXPECT_THAT(Differs(),
              StartsWith("! Ethertype: the row shows the VLAN tag. It is 0x88BA.\n"
                         "! AppID: the row shows priority and VLAN of the tag. It is 0x4000.\n"));
  EXPECT_THAT(Differs(), HasSubstr("! ID: the search read \"\\x01\". svID is \"MU01\".\n"));
  EXPECT_THAT(Differs(), HasSubstr(", which is not the length. It is "));
}

TEST_F(ReportByStructure, NamesTheTagOfAFrameThatMisleadsNobody) {
  Run(SvFrame("MU01").Vlan(4, 5).Bytes());
  EXPECT_EQ(Differs(),
            "! Ethertype: the row shows the VLAN tag. It is 0x88BA.\n"
            "! AppID: the row shows priority and VLAN of the tag. It is 0x4000.\n");
}

TEST_F(ReportByStructure, SaysThatACounterIsMisread) {
  // The ID spells the tag of the counter.
  Run(SvFrame("8\x82\x02XY").Count(300).Bytes());
  EXPECT_THAT(Differs(), HasSubstr("! Sample Count: the row shows "));
  EXPECT_THAT(Differs(), HasSubstr(". smpCnt is 300.\n"));
}

TEST_F(ReportByStructure, SaysThatASynchronisationIsMisread) {
  FrameBytes frame = SvFrame("MU01").Synch(2).Bytes();
  // The revision of the configuration spells the tag.
  const FrameBytes revision{0x83, 4, 0, 0};
  *(std::search(frame.begin(), frame.end(), revision.begin(), revision.end()) + 2) = 0x85;
  Run(frame);
  EXPECT_EQ(Differs(),
            "! Sample Sync: the row shows 0. smpSynch is 2, synchronised by a global area "
            "clock.\n");
}

TEST_F(ReportByStructure, SaysThatTheRowHasNoTextForAnIdentity) {
  Run(SvFrame("MU01").Synch(7).Bytes());
  EXPECT_EQ(Differs(),
            "! Sample Sync: the row is left as it was. smpSynch is 7, synchronised by the local "
            "area clock of this identity.\n");
  Run(SvFrame("MU01").Synch(0x10).Bytes());
  EXPECT_THAT(Differs(), StartsWith("! Sample Sync: the row is left as it was. smpSynch is 16, "));
  Run(SvFrame("MU01").Synch(0x0A).Bytes());
  EXPECT_THAT(Differs(), StartsWith("! Sample Sync: the row shows 0. smpSynch is 10, "));
}

TEST_F(ReportByStructure, SaysThatALengthIsInTheLongForm) {
  const FrameBytes frame = SvFrame("MU01").Asdus(2).Bytes();
  Run(frame);
  EXPECT_THAT(Differs(), HasSubstr("! ASDU: the row shows 81, with which a length in the long form "
                                   "begins. It is "));
  EXPECT_THAT(Differs(), Not(HasSubstr("! ID")));
}

TEST_F(ReportByStructure, SaysWhereTheStructureEnds) {
  FrameBytes frame = SvFrame("MU01").Bytes();
  frame[22] = 0x61;
  Run(frame);
  EXPECT_EQ(Differs(), "! The structure of this frame is not sound: see below.\n");
  EXPECT_THAT(Told(), HasSubstr("\nStructure\tends at 0x0016: there is no savPdu (tag 60)\n"));
  EXPECT_THAT(std::string(main.StructureDump.Text), StartsWith("0000  01 0C"));
}

TEST_F(ReportByStructure, TellsWhoseFrameItIsWhereTheRowsDoNot) {
  main.Text1[forms::setup_field::Content2].Text = "MU02";
  Run(SvFrame("MU01").Bytes());
  ASSERT_THAT(Told(), StartsWith(Same));
  Run(SvFrame("MU02").Count(77).Bytes());
  ASSERT_FALSE(main.Label8[0].Visible);
  EXPECT_EQ(Differs(),
            "! The frame that came was sent by \"MU02\" and not by \"MU01\". RUN asks again.\n");
  EXPECT_THAT(Told(), HasSubstr("\nsvID\tMU02\nsmpCnt\t77\n"));
  Run(SvFrame("MU01").Vlan(4, 1).Bytes());
  EXPECT_THAT(Differs(),
              ::testing::EndsWith("! ID: the search read \"\\x01\". svID is \"MU01\".\n"));
}

TEST_F(ReportByStructure, IsNotTouchedByTheFinder) {
  Run(SvFrame("MU01").Count(5).Bytes());
  const std::string before = Told();
  scene.App.Windows.IDlook.Window.ShowModal = [this] {
    scene.Elapse(100ms);
    scene.Receive(SvFrame("MU07").Bytes());
    scene.App.Windows.IDlook.Window.Unload();
  };
  main.Command7.Click();
  EXPECT_EQ(Told(), before);
}

TEST_F(ReportByStructure, StaysWhereTheNextRunGetsNoFrame) {
  Run(SvFrame("MU01").Count(5).Bytes());
  const std::string before = Told();
  main.Command2.Value = true;
  scene.Elapse(4s);
  EXPECT_EQ(Told(), before);
}

TEST_F(ReportByStructure, WritesControlCharactersOutAndTakesTheCodePage) {
  Run(SvFrame("M\xDC\t\n").Bytes());
  EXPECT_THAT(Told(), HasSubstr("\nsvID\tMÜ\\t\\n\n"));
}

TEST_F(ReportByStructure, TellsAnEmptyIdAsAField) {
  Run(SvFrame("").Bytes());
  EXPECT_THAT(Told(), HasSubstr("\nASDU 1\nsvID\t\n"));
}

}  // namespace
