#include <gmock/gmock.h>

#include "console_scene.h"
#include "recording_text.h"
#include "support/failing_files.h"

namespace console {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* Name = "SV record 21.11.2026 18-04-09";

/// A text recording in a folder, and what a conversion leaves there.
class ConvertCommandScene : public ConsoleScene {
 protected:
  std::string Recorded(const std::string& text, const std::string& name = Name) {
    WriteFile(Folder.File(name + ".txt"), text);
    return Folder.File(name + ".txt");
  }
  /// The line of a configuration, from 1 on.
  std::string Line(const std::string& path, int number) const {
    std::istringstream lines(support::BytesOf(path));
    std::string line;
    for (int i = 0; i < number; ++i) std::getline(lines, line);
    return line.substr(0, line.find('\r'));
  }
  bool IsThere(const std::string& name) const { return Files.FileExists(Folder.File(name)); }
  std::string Cfg() const { return Folder.File(std::string(Name) + ".cfg"); }
  std::string Dat() const { return Folder.File(std::string(Name) + ".dat"); }
  std::string Cff() const { return Folder.File(std::string(Name) + ".cff"); }
};

TEST_F(ConvertCommandScene, MakesAPairBesideTheRecordingAndNamesIt) {
  const std::string file = Recorded(RecordingText(Counters(3998, 4, 4000)));

  EXPECT_EQ(Run({"convert", file, "--to", "comtrade-1999", "--station", "North"}), ExitCode::Done);

  EXPECT_EQ(Results.str(), Cfg() + "\n" + Dat() + "\n");
  EXPECT_EQ(Notes.str(), "");
  EXPECT_THAT(Line(Cfg(), 1), StartsWith("North,Vornik "));
  EXPECT_EQ(Line(Cfg(), 6), "4,In,N,,A,0.001,0,0,1600,1600,1,1,P");
  EXPECT_EQ(Line(Cfg(), 14), "21/11/2026,18:04:09.000000");
  EXPECT_EQ(Line(Dat(), 4), "4,3,99998,-99998,-99998,1600,99998,99998,-99998,8725");
  EXPECT_EQ(Files.FileSize(Dat()), 4 * 54);
}

TEST_F(ConvertCommandScene, TellsWhatTheRecordingLacks) {
  std::string text = RecordingText({10, 11, 14, 13, 13, 17, 9});
  const std::string file = Recorded(text + "7;18;1");

  EXPECT_EQ(Run({"convert", file, "--to", "cff", "--round", "4000"}), ExitCode::Done);

  EXPECT_EQ(Notes.str(), "vornik-cli: " + file +
                             ": 3 samples lost by the counter, with missing values in the files.\n"
                             "vornik-cli: " +
                             file +
                             ": 1 sample doubled, and left out.\n"
                             "vornik-cli: " +
                             file +
                             ": 1 sample out of order, and put in place.\n"
                             "vornik-cli: " +
                             file +
                             ": 1 sample sent before the first one, and left out.\n"
                             "vornik-cli: " +
                             file + ": the last line was cut, and is left out.\n");
  EXPECT_THAT(support::BytesOf(Cff()), HasSubstr("\r\n4000,8\r\n"));
}

TEST_F(ConvertCommandScene, LearnsTheRateAndTheMainsOfASecondStream) {
  const std::string file =
      Recorded(RecordingText(Counters(4798, 4, 4800)), "2_" + std::string(Name));
  const std::string cfg = Folder.File("2_" + std::string(Name) + ".cfg");

  EXPECT_EQ(Run({"convert", file, "--to", "comtrade-2013", "--binary32"}), ExitCode::Done);

  EXPECT_EQ(Line(cfg, 3), "1,Ia,A,,A,0.001,0,0,533239,533239,1,1,P");
  EXPECT_EQ(Line(cfg, 11), "60");
  EXPECT_EQ(Line(cfg, 13), "4800,4");
}

TEST_F(ConvertCommandScene, TakesNamesUnitsAndMomentsThatItIsTold) {
  const std::string file = Recorded(RecordingText({1, 2}), "renamed");
  const std::string cfg = Folder.File("renamed.cfg");

  EXPECT_EQ(Run({"convert", file, "--to", "comtrade-2013", "--channels", "a,b,c,d,e,f,g,h",
                 "--unit", "mA,V", "--start", "2026-11-21T18:04:09.25", "--utc-offset", "-3h30",
                 "--frequency", "16.7", "--round", "4800"}),
            ExitCode::Done);

  EXPECT_EQ(Line(cfg, 3), "1,a,A,,mA,1,0,0,533,533,1,1,P");
  EXPECT_EQ(Line(cfg, 10), "8,h,N,,V,0.01,0,0,9,9,1,1,P");
  EXPECT_EQ(Line(cfg, 11), "16.7");
  EXPECT_EQ(Line(cfg, 13), "4800,2");
  EXPECT_EQ(Line(cfg, 15), "21/11/2026,18:04:09.250000");
  EXPECT_EQ(Line(cfg, 18), "-3h30,-3h30");
}

TEST_F(ConvertCommandScene, TellsSummerTimeByTheMomentOfTheRecording) {
  /// A computer in the middle of Europe, of which the last Sunday of March is known.
  class Europe : public support::FakeCalendar {
   public:
    platform::LocalTime At(std::chrono::seconds moment) const override {
      constexpr std::chrono::seconds Summer{1'774'746'000};
      return FakeCalendar::At(moment + std::chrono::hours(moment < Summer ? 1 : 2));
    }
  };
  const Europe calendar;
  const console::Machine there = MachineWith(Files, calendar);
  const auto aheadAt = [&](const std::string& start) {
    const std::string file = Recorded(RecordingText({1, 2}), "a");
    const std::vector<const char*> words{"vornik-cli",    "convert", file.c_str(), "--to",
                                         "comtrade-2013", "--force", "--start",    start.c_str()};
    EXPECT_EQ(console::Run(static_cast<int>(words.size()), words.data(), there), ExitCode::Done);
    return Line(Folder.File("a.cfg"), 18);
  };

  EXPECT_EQ(aheadAt("2026-03-29 01:59:59"), "+1,+1");
  EXPECT_EQ(aheadAt("2026-03-29 03:00:00"), "+2,+2");
}

TEST_F(ConvertCommandScene, WritesIntoAnotherFolder) {
  const std::string file = Recorded(RecordingText({1, 2}));
  Files.MakeFolder(Folder.File("out"));

  EXPECT_EQ(Run({"convert", file, "--to", "cff", "--output", Folder.File("out")}), ExitCode::Done);

  EXPECT_EQ(Results.str(), Folder.File("out/" + std::string(Name) + ".cff") + "\n");
  EXPECT_EQ(Run({"convert", file, "--to", "cff", "--output", Folder.File("none")}),
            ExitCode::FileTrouble);
  EXPECT_THAT(Notes.str(), HasSubstr("there is no folder"));
}

TEST_F(ConvertCommandScene, OverwritesNothingUnlessItIsTo) {
  const std::string file = Recorded(RecordingText({1, 2}));
  WriteFile(Dat(), "older");

  EXPECT_EQ(Run({"convert", file, "--to", "comtrade-1999"}), ExitCode::FileTrouble);
  EXPECT_EQ(support::BytesOf(Dat()), "older");
  EXPECT_FALSE(Files.FileExists(Cfg()));
  EXPECT_THAT(Notes.str(), EndsWith(".dat is there already; --force overwrites it.\n"));

  EXPECT_EQ(Run({"convert", file, "--to", "comtrade-1999", "--force"}), ExitCode::Done);
  EXPECT_NE(support::BytesOf(Dat()), "older");
}

TEST_F(ConvertCommandScene, NamesTheLineThatIsNoSampleAndLeavesNothing) {
  const std::string good = RecordingText({1, 2});
  const std::vector<std::string> hostile = {
      "letters\r\n",
      "\r\n",
      "2;3;1;2;3;4;5;6;7\r\n",
      "2;3;1;2;3;4;5;6;7;8;9\r\n",
      "2;3;1;2;3;4;5;6;7;\r\n",
      "2;3;1;2;3;4;5;6;7;nan\r\n",
      "2;3;1;2;3;4;5;6;7;inf\r\n",
      "2;3;1;2;3;4;5;6;7;1e300\r\n",
      "2;3;1;2;3;4;5;6;7;1e999999999\r\n",
      "2;99999999999999999999;1;2;3;4;5;6;7;8\r\n",
      "2;-3;1;2;3;4;5;6;7;8\r\n",
      "2;3.5;1;2;3;4;5;6;7;8\r\n",
      "2;3; 1;2;3;4;5;6;7;8\r\n",
      "2;3;1;2;3;4;5;6;7;8x\r\n",
      std::string("2;3;1;2;3;4;5;6;7;8\0\r\n", 22),
      std::string(300'000, ';') + "\r\n",
  };
  for (const std::string& line : hostile) {
    const std::string file = Recorded(std::string(good).append(line).append(good));
    EXPECT_EQ(Run({"convert", file, "--to", "comtrade-1999"}), ExitCode::FileTrouble) << line;
    EXPECT_EQ(Notes.str(),
              "vornik-cli: " + file + ": line 3: it is no sample of a text recording\n");
    EXPECT_EQ(Results.str(), "");
    EXPECT_FALSE(Files.FileExists(Cfg()));
  }
}

TEST_F(ConvertCommandScene, RefusesARecordingWithoutAWholeSample) {
  for (const std::string& text : {std::string(), std::string("0;1;2"), std::string(4096, '\0')}) {
    const std::string file = Recorded(text);
    EXPECT_EQ(Run({"convert", file, "--to", "cff"}), ExitCode::FileTrouble);
    EXPECT_EQ(Notes.str(), "vornik-cli: " + file + ": it holds no whole sample\n");
  }
  EXPECT_EQ(
      Run({"convert", Folder.File("none.txt"), "--to", "cff", "--start", "2026-11-21 18:04:09"}),
      ExitCode::FileTrouble);
}

TEST_F(ConvertCommandScene, RefusesACounterBeyondTheRoundAndKeepsTheOlderFiles) {
  const std::string file = Recorded(RecordingText({3998, 3999, 0, 4000}));
  WriteFile(Cff(), "older");

  EXPECT_EQ(Run({"convert", file, "--to", "cff", "--force"}), ExitCode::FileTrouble);

  EXPECT_THAT(Notes.str(), HasSubstr("line 4: its counter 4000 is beyond a round of 4000 samples"));
  EXPECT_EQ(support::BytesOf(Cff()), "older");
  EXPECT_FALSE(IsThere(std::string(Name) + ".part.cff"));
}

TEST_F(ConvertCommandScene, LeavesNothingOnADiskThatIsFull) {
  const std::string file = Recorded(RecordingText(Counters(0, 40'000, 4000)));
  support::FailingFiles failing(Files);
  const console::Machine there = MachineWith(failing);
  const std::vector<const char*> words{"vornik-cli", "convert", file.c_str(), "--to", "cff"};
  // Of the head, of two pieces of samples, of the rest, and of the head again.
  for (int write = 1; write <= 5; ++write) {
    failing.Writes = 0;
    failing.FailingWrite = write;
    EXPECT_EQ(console::Run(static_cast<int>(words.size()), words.data(), there),
              ExitCode::FileTrouble)
        << write;
    EXPECT_FALSE(IsThere(std::string(Name) + ".part.cff")) << write;
    EXPECT_FALSE(Files.FileExists(Cff())) << write;
  }
  EXPECT_THAT(Notes.str(), HasSubstr(platform::Failure(61).Text()));
}

TEST_F(ConvertCommandScene, RefusesWhatTheStandardHasNot) {
  const std::string file = Recorded(RecordingText({1, 2}));
  const std::string second = Recorded(RecordingText({1, 2}), "2_" + std::string(Name));
  const std::string renamed = Recorded(RecordingText({1, 2}), "renamed");
  const std::vector<Words> wrong = {
      {"convert", file},
      {"convert", file, "--to", "comtrade-1991"},
      {"convert", file, "--to", "comtrade-1999", "--binary32"},
      {"convert", file, "--to", "comtrade-1999", "--float"},
      {"convert", file, "--to", "cff", "--binary", "--float"},
      {"convert", file, "--to", "cff", "--binary", "--binary32"},
      {"convert", file, "--to", "cff", "--station", "a,b"},
      {"convert", file, "--to", "comtrade-1999", "--station", "Čakovec"},
      {"convert", file, "--to", "cff", "--channels", "a,b,c"},
      {"convert", file, "--to", "cff", "--channels", "a", "b", "c", "d", "e", "f", "g", ""},
      {"convert", file, "--to", "cff", "--unit", "V,A"},
      {"convert", file, "--to", "cff", "--round", "1"},
      {"convert", file, "--to", "cff", "--start", "21.11.2026"},
      {"convert", file, "--to", "cff", "--start", "2026-11-31 18:04:09"},
      {"convert", file, "--to", "cff", "--start", "2026-11-21 18:04:09.1234567"},
      {"convert", file, "--to", "cff", "--start", "2026-11-21 18:04:09."},
      {"convert", file, "--to", "cff", "--utc-offset", "1x"},
      {"convert", file, "--to", "cff", "--utc-offset", "+1h60"},
      {"convert", file, "--to", "cff", "--utc-offset", "Z"},
      {"convert", second, "--to", "cff", "--unit", "mA,kV"},
      {"convert", renamed, "--to", "cff"},
  };
  for (const Words& words : wrong) {
    EXPECT_EQ(Run(words), ExitCode::WrongUse) << words.back();
    EXPECT_EQ(Results.str(), "");
    EXPECT_NE(Notes.str(), "");
  }
}

}  // namespace
}  // namespace console
