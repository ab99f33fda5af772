#include <algorithm>

#include "console_scene.h"
#include "program/bus_file.h"
#include "support/scene.h"

namespace console {
namespace {

using testing::HasSubstr;

constexpr int Block = 400;

class ValuesCommandScene : public ConsoleScene {
 protected:
  Words ValuesWords(const Words& more = {}) const {
    Words words{"values", Folder.File("bus.pcap"), "--fast", "--station", "MU01"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
  }
  /// The cells of a line of a table.
  static Words Cells(const std::string& line) {
    Words cells;
    for (std::size_t at = 0; at < line.size();) {
      const std::size_t end = std::min(line.find("  ", at), line.size());
      if (end > at) cells.push_back(line.substr(at, end - at));
      at = end + 1;
      while (at < line.size() && line[at] == ' ') ++at;
    }
    return cells;
  }
  Words Lines() const {
    Words lines;
    std::istringstream text(Results.str());
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }

  BusFile Bus;
};

TEST_F(ValuesCommandScene, TellTheTextsOfBothPagesForTheSameFrames) {
  Bus.Add(Block + 1).Save(Folder.File("bus.pcap"));
  EXPECT_EQ(Run(ValuesWords({"--blocks", "1"})), ExitCode::Done) << Notes.str();
  support::Scene values;
  values.Store.Texts["ACDC"] = "True";
  values.Start();
  values.Main.CWButton4.Value = true;
  support::Scene phasors;
  phasors.Start();
  phasors.Select(forms::tab::Phasor);
  phasors.Main.CWButton2.Value = true;
  for (support::Scene* window : {&values, &phasors}) {
    for (const support::FrameBytes& frame : Bus.Frames()) window->Receive(frame);
  }

  const Words lines = Lines();
  ASSERT_EQ(lines.size(), 11U) << Results.str();
  EXPECT_EQ(lines[0], "2024-03-09T14:05:07.100000Z") << "when the last frame came";
  for (std::size_t i = 0; i < 8; ++i) {
    const std::string magnitude = phasors.Main.Grid1.Cell[i + 1][1];
    const std::string angle = phasors.Main.Grid1.Cell[i + 1][2];
    const std::string dc = values.Main.Label12[i + forms::small_label::FirstDc].Caption;
    EXPECT_THAT(
        Cells(lines[i + 2]),
        testing::ElementsAre(values.Settings.ChannelName[i], i < 4 ? "A" : "kV",
                             values.Main.Label5[i].Caption.Get(), dc.substr(3), magnitude, angle));
    EXPECT_NE(magnitude, "") << "the page has measured";
  }
}

TEST_F(ValuesCommandScene, TellALineOfJsonABlock) {
  Bus.Add(3 * Block + 1).Save(Folder.File("bus.pcap"));
  EXPECT_EQ(Run(ValuesWords({"--json", "--current", "mA", "--voltage", "V"})), ExitCode::Done);
  const Words lines = Lines();
  ASSERT_EQ(lines.size(), 3U) << "to the end of the file";
  for (const std::string& line : lines) {
    const nlohmann::json block = nlohmann::json::parse(line);
    EXPECT_EQ(block.at("svID"), "MU01");
    const nlohmann::json& current = block.at("channels").at(0);
    EXPECT_EQ(current.at("unit"), "mA");
    EXPECT_NEAR(current.at("rms").get<double>(), 403'000, 1000) << "no groups of digits";
    EXPECT_EQ(current.at("rms"), current.at("magnitude"));
    EXPECT_NEAR(block.at("channels").at(4).at("rms").get<double>(), 63'500, 1);
    EXPECT_NEAR(block.at("channels").at(4).at("angle").get<double>(), 0, 0.001);
  }
}

TEST_F(ValuesCommandScene, MeasureWhatFitsNoScaleOfTheDiagram) {
  // More than the largest of the automatic scales of a current.
  adapter_tests::PcapFile file;
  for (int i = 0; i <= Block; ++i) {
    file.Add(BusFile::Began, static_cast<std::uint32_t>(i * 250),
             support::SineFrame(i, 900'000, 63.5));
  }
  file.Save(Folder.File("bus.pcap"));
  EXPECT_EQ(Run(ValuesWords({"--json", "--blocks", "1"})), ExitCode::Done) << Notes.str();
  EXPECT_NEAR(Json().at("channels").at(0).at("rms").get<double>(), 900'000, 1);
  EXPECT_NEAR(Json().at("channels").at(1).at("angle").get<double>(), 0, 0.001);
}

TEST_F(ValuesCommandScene, EndWhereNothingComes) {
  Bus.Add(9000, {"MU02"}).Save(Folder.File("bus.pcap"));
  EXPECT_EQ(Run(ValuesWords()), ExitCode::NothingReceived);
  EXPECT_EQ(Results.str(), "");
  EXPECT_THAT(Notes.str(), HasSubstr("No data received."));
  EXPECT_THAT(Notes.str(), testing::Not(HasSubstr("tab"))) << "there is none here";
}

TEST_F(ValuesCommandScene, EndBehindTheirSecondsAndAtTheUsersWish) {
  EXPECT_EQ(Run({"values", "simulated", "--station", "VORNIK-SIM-2", "--seconds", "1.5"}),
            ExitCode::Done);
  EXPECT_EQ(Lines().size(), 2U * 11);
  EndAsked = true;
  EXPECT_EQ(Run({"values", "simulated", "--station", "VORNIK-SIM-2"}), ExitCode::NothingReceived);
}

TEST_F(ValuesCommandScene, RestBetweenTwoBlocksForTheirInterval) {
  const auto blocks = [&](const std::string& interval) {
    EXPECT_EQ(Run({"values", "simulated", "--station", "VORNIK-SIM-2", "--seconds", "1.5",
                   "--interval", interval}),
              ExitCode::Done);
    const std::size_t lines = Lines().size();
    Results.str("");
    return lines / 11;
  };
  EXPECT_EQ(blocks("2000"), 1U);
  EXPECT_GT(blocks("0"), 4U);
}

TEST_F(ValuesCommandScene, LeaveTheFilesOfTheWindowAlone) {
  support::FakeFiles files;
  const console::Machine machine = MachineWith(files);
  const std::vector<const char*> words{"vornik-cli",   "values",   "simulated", "--station",
                                       "VORNIK-SIM-1", "--blocks", "1"};
  EXPECT_EQ(console::Run(static_cast<int>(words.size()), words.data(), machine), ExitCode::Done);
  EXPECT_THAT(files.Made, testing::IsEmpty()) << "the folder for data is not its business";
}

TEST_F(ValuesCommandScene, EndWhereNobodyReadsThem) {
  Results.setstate(std::ios::badbit);
  EXPECT_EQ(Run({"values", "simulated", "--station", "VORNIK-SIM-1", "--seconds", "60"}),
            ExitCode::FileTrouble);
  EXPECT_LT(Clock.Now(), std::chrono::seconds(5));
}

TEST_F(ValuesCommandScene, RefuseWhatCannotBe) {
  for (const char* text : {"nan", "1e300", "0x32", "0", "1001", "-50"}) {
    EXPECT_EQ(Run({"values", "simulated", "--station", "X", "--frequency", text}),
              ExitCode::WrongUse)
        << text;
  }
  EXPECT_EQ(Run({"values", "simulated", "--station", "X", "--seconds", "nan"}), ExitCode::WrongUse);
  EXPECT_EQ(Run({"values", "simulated", "--station", "X", "--blocks", "-1"}), ExitCode::WrongUse);
  EXPECT_LT(Notes.str().size(), 120U) << "no bound of 300 digits: " << Notes.str();
  EXPECT_EQ(Run(ValuesWords({"--station", "MU02"})), ExitCode::WrongUse) << "one at a time";
  EXPECT_EQ(Run({"values", "simulated", "--station", "X", "--samplings", "0"}), ExitCode::WrongUse);
  EXPECT_EQ(Run({"values", "simulated", "--station", "X", "--voltage", "MV"}), ExitCode::WrongUse);
}

}  // namespace
}  // namespace console
