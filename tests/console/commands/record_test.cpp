#include <algorithm>
#include <filesystem>

#include "console_scene.h"
#include "program/bus_file.h"
#include "support/scene.h"

namespace console {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

constexpr int Ring = 4000;
const std::string Name = "SV record 09.03.2024 14-05-07";

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
    text.replace(at, what.size(), by);
  }
  return text;
}

class RecordCommandScene : public ConsoleScene {
 protected:
  RecordCommandScene() { std::filesystem::create_directory(Data); }

  Words RecordWords(const Words& more = {}) const {
    Words words{"record", Folder.File("bus.pcap"), "--fast", "--folder", Data, "--station", "MU01"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
  }
  std::vector<std::string> Names() const { return NamesIn(Data); }
  std::string Content(const std::string& name) const { return support::BytesOf(Data + "/" + name); }
  static auto LinesOf(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
  }

  const std::string Data = Folder.File("data");
  BusFile Bus;
};

/// A format by the command's name and by the stored one.
struct Kind {
  const char* Option;
  const char* Stored;
};

class SameFiles : public RecordCommandScene, public testing::WithParamInterface<Kind> {
 protected:
  /// The frames go through the Recorder page of the window.
  static void PressRunAndStop(support::Scene& window, const BusFile& bus, const Kind& kind,
                              const Words& stations) {
    window.App.Load();
    window.Main.Text1[forms::setup_field::Content1].Text = stations[0];
    if (stations.size() > 1) {
      window.Main.Text1[forms::setup_field::Content2].Text = stations[1];
    }
    window.Select(forms::tab::Recorder);
    for (std::size_t i = 0; i < window.Main.Option2.size(); ++i) {
      if (window.App.Recorder.Writing.Formats[i].Facts.Name == kind.Stored) {
        window.Main.Option2[i].Value = true;
      }
    }
    window.Main.CWButton3.Value = true;
    for (const support::FrameBytes& frame : bus.Frames()) {
      window.Receive(frame);
      window.Clock.Advance(250us / stations.size());
    }
    window.Calendar.Present.Second += 2;
    window.Main.CWButton3.Value = false;
    window.App.CloseFiles();
  }
};

TEST_P(SameFiles, AreThoseOfTheWindowForTheSameFrames) {
  for (const Words& stations : {Words{"MU01"}, Words{"MU01", "MU02"}}) {
    BusFile bus;
    bus.Add(1000, stations).Lose(3).Add(2 * Ring - 900, stations).Save(Folder.File("bus.pcap"));
    support::Scene window;
    PressRunAndStop(window, bus, GetParam(), stations);
    Words words = RecordWords({"--format", GetParam().Option});
    if (stations.size() > 1) words.insert(words.end(), {"--station", stations[1]});
    EXPECT_EQ(Run(words), ExitCode::Done) << Notes.str();

    int compared = 0;
    for (const auto& [path, content] : window.Files.Stored) {
      const std::string name = path.substr(path.rfind('\\') + 1);
      if (name.starts_with("Events ")) continue;
      EXPECT_EQ(Replaced(Content(name), Data + "/", "c:\\StoredData\\"), content) << name;
      EXPECT_TRUE(std::filesystem::exists(Data + "/" + name)) << name;
      ++compared;
    }
    EXPECT_GT(compared, 0);
    const auto events = std::count_if(
        window.Files.Stored.begin(), window.Files.Stored.end(),
        [](const auto& file) { return file.first.find("Events ") != std::string::npos; });
    EXPECT_EQ(events, 1);
    EXPECT_EQ(Names().size(), window.Files.Stored.size());
    std::filesystem::remove_all(Data);
    std::filesystem::create_directory(Data);
  }
}

INSTANTIATE_TEST_SUITE_P(RecordCommand, SameFiles,
                         testing::Values(Kind{"text", "TXT"}, Kind{"worksheet", "EXCEL"},
                                         Kind{"comtrade", "COMTRADE"}),
                         [](const auto& kind) { return std::string(kind.param.Option); });

TEST_F(RecordCommandScene, GiveTheNamesOfTheFilesAsResults) {
  Bus.Add(2 * Ring + 10).Save(Folder.File("bus.pcap"));
  EXPECT_EQ(Run(RecordWords()), ExitCode::Done);
  EXPECT_EQ(Results.str(), Data + "/" + Name + ".txt\n");
  EXPECT_EQ(LinesOf(Content(Name + ".txt")), 2 * Ring);
  EXPECT_THAT(Notes.str(), HasSubstr("The recording ended at 14:05: STOP was pressed."));
}

TEST_F(RecordCommandScene, TakeTheTimesOfTheFileForTheirEvents) {
  Bus.Add(1001).Lose(8).Add(Ring).Save(Folder.File("bus.pcap"));
  EXPECT_EQ(Run(RecordWords()), ExitCode::Done);
  EXPECT_THAT(Content("Events " + Name + ".csv"),
              HasSubstr("2024-03-09 14:05:07.252;1;1001;samples missing;8;"));
}

TEST_F(RecordCommandScene, GoOnInNewFiles) {
  Bus.Add(3 * Ring + 1).Save(Folder.File("bus.pcap"));
  EXPECT_EQ(Run(RecordWords()), ExitCode::Done);
  const std::string whole = Content(Name + ".txt");
  std::filesystem::remove_all(Data);
  std::filesystem::create_directory(Data);

  EXPECT_EQ(Run(RecordWords({"--every", "2s"})), ExitCode::Done);
  const std::string second = "SV record 09.03.2024 14-05-09.txt";
  EXPECT_EQ(Content(Name + ".txt") + Content(second), whole);
  EXPECT_EQ(Results.str(), Data + "/" + Name + ".txt\n" + Data + "/" + second + "\n");
  EXPECT_THAT(Names(), testing::IsSupersetOf({"Errorlog " + Name + ".txt", "Errorlog " + second,
                                              "Events " + Name + ".csv"}));
}

TEST_F(RecordCommandScene, StoreNothingOfAFileWithoutTheirStation) {
  Bus.Add(9000, {"MU02"}).Save(Folder.File("bus.pcap"));
  EXPECT_EQ(Run(RecordWords()), ExitCode::NothingReceived);
  EXPECT_THAT(Names(), testing::IsEmpty()) << "nor is there an empty file";
  EXPECT_EQ(Results.str(), "");
  EXPECT_THAT(Notes.str(), HasSubstr("No frame of 'MU01' has come."));
}

TEST_F(RecordCommandScene, TellOfAStationThatNeverCame) {
  Bus.Add(Ring + 10).Save(Folder.File("bus.pcap"));
  EXPECT_EQ(Run(RecordWords({"--station", "MU02"})), ExitCode::NothingReceived);
  EXPECT_THAT(Notes.str(), HasSubstr("No frame of 'MU02' has come."));
  EXPECT_EQ(LinesOf(Content("1_" + Name + ".txt")), Ring) << "the other one is stored";
}

TEST_F(RecordCommandScene, TellOfAFileThatIsTooShort) {
  Bus.Add(Ring - 1).Save(Folder.File("bus.pcap"));
  EXPECT_EQ(Run(RecordWords()), ExitCode::NothingReceived);
  EXPECT_THAT(Notes.str(), HasSubstr("Nothing was stored: fewer than 4000 samples"));
}

TEST_F(RecordCommandScene, WaitForTheirStationAsLongAsItTakes) {
  // Shorter frames of another station come first, for longer than the window waits.
  const support::FrameBytes shorter = support::SvFrame("MU02").Channels(4).Bytes();
  adapter_tests::PcapFile file;
  for (std::uint32_t second = 0; second < 7; ++second) {
    file.Add(BusFile::Began + second, 0, shorter);
  }
  Bus.Add(2 * Ring + 100);
  std::uint32_t time = 0;
  for (const support::FrameBytes& frame : Bus.Frames()) {
    file.Add(BusFile::Began + 7 + time / 1'000'000, time % 1'000'000, frame);
    time += 250;
  }
  file.Save(Folder.File("bus.pcap"));

  EXPECT_EQ(Run(RecordWords()), ExitCode::Done) << Notes.str();
  EXPECT_EQ(LinesOf(Notes.str()), 2) << "it is told once a minute, and its end: " << Notes.str();
  EXPECT_EQ(Results.str(), Data + "/SV record 09.03.2024 14-05-13.txt\n")
      << "the name is not that of a RUN long ago";
  EXPECT_EQ(Names().size(), 3U);
}

TEST_F(RecordCommandScene, EndAtTheUsersWishWithAllTheirFiles) {
  int rests = 0;
  WhileResting = [&] { EndAsked = ++rests > 2500; };
  EXPECT_EQ(Run({"record", "simulated", "--station", "VORNIK-SIM-1", "--folder", Data}),
            ExitCode::Done)
      << Notes.str();
  EXPECT_EQ(Names().size(), 3U) << "samples, log and events";
}

TEST_F(RecordCommandScene, EndBehindTheirSeconds) {
  EXPECT_EQ(Run({"record", "simulated", "--station", "VORNIK-SIM-1", "--folder", Data, "--seconds",
                 "1.5"}),
            ExitCode::Done);
  EXPECT_EQ(LinesOf(Content(Names().back())), Ring);
}

TEST_F(RecordCommandScene, TellOfADiskThatFails) {
  Bus.Add(3 * Ring + 10).Save(Folder.File("bus.pcap"));
  for (const std::int32_t number : {platform::failure::DiskFull, platform::failure::DeviceIo}) {
    support::FailingFiles failing(Files);
    failing.FailingWrite = 2;
    failing.FailsWhole = true;
    failing.Number = number;
    const console::Machine machine = MachineWith(failing);
    const Words words = RecordWords();
    std::vector<const char*> arguments{"vornik-cli"};
    for (const std::string& word : words) arguments.push_back(word.c_str());
    EXPECT_EQ(console::Run(static_cast<int>(arguments.size()), arguments.data(), machine),
              ExitCode::FileTrouble);
    const bool full = number == platform::failure::DiskFull;
    EXPECT_THAT(Notes.str(), HasSubstr(full ? "vornik-cli: Disk full. Please check the disk path"
                                            : "stream 1: not stored since"));
    EXPECT_EQ(LinesOf(Content(Name + ".txt")), Ring) << "what was stored is there";
    std::filesystem::remove_all(Data);
    std::filesystem::create_directory(Data);
  }
}

TEST_F(RecordCommandScene, TellOfAFolderThatMustNotBeWrittenTo) {
  Bus.Add(3 * Ring + 10).Save(Folder.File("bus.pcap"));
  support::FailingFiles guarded(Files);
  guarded.Refusal = platform::failure::PermissionDenied;
  const console::Machine machine = MachineWith(guarded);
  const Words words = RecordWords();
  std::vector<const char*> arguments{"vornik-cli"};
  for (const std::string& word : words) arguments.push_back(word.c_str());
  EXPECT_EQ(console::Run(static_cast<int>(arguments.size()), arguments.data(), machine),
            ExitCode::NotPermitted);
  EXPECT_THAT(Notes.str(), HasSubstr("Permission denied"));
  EXPECT_THAT(Names(), testing::IsEmpty());
}

TEST_F(RecordCommandScene, GoOnWhereNobodyReadsTheNames) {
  Bus.Add(3 * Ring + 1).Save(Folder.File("bus.pcap"));
  Results.setstate(std::ios::badbit);
  EXPECT_EQ(Run(RecordWords({"--every", "2s"})), ExitCode::FileTrouble);
  EXPECT_EQ(LinesOf(Content(Name + ".txt")) + LinesOf(Content("SV record 09.03.2024 14-05-09.txt")),
            3 * Ring);
  EXPECT_THAT(Notes.str(), HasSubstr("the results could not be written"));
}

TEST_F(RecordCommandScene, RefuseWhatCannotBe) {
  EXPECT_EQ(Run({"record", "simulated", "--station", "X", "--folder", Data + "/away"}),
            ExitCode::FileTrouble);
  EXPECT_THAT(Notes.str(), HasSubstr("is not there. Make it, or name another one."));
  EXPECT_EQ(Run(RecordWords()), ExitCode::FileTrouble) << "there is no such capture file";
  EXPECT_EQ(Run({"record", "simulated", "--station", "", "--folder", Data}), ExitCode::WrongUse);
  EXPECT_EQ(Run({"record", "simulated", "--folder", Data}), ExitCode::WrongUse);
  EXPECT_EQ(Run(RecordWords({"--format", "wave"})), ExitCode::WrongUse);
  EXPECT_EQ(Run(RecordWords({"--station", "B", "--station", "C"})), ExitCode::WrongUse);
  EXPECT_EQ(Run({"record", "simulated", "--station", "X", "--folder", Data, "--filter", "and and"}),
            ExitCode::WrongUse);
  EXPECT_THAT(Notes.str(), HasSubstr("filter setup ('Packet filter condition') isn't correct"));
}

}  // namespace
}  // namespace console
