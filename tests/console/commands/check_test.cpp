#include <gmock/gmock.h>

#include "console_scene.h"
#include "recording_text.h"
#include "support/failing_files.h"

namespace console {
namespace {

using ::testing::HasSubstr;

constexpr const char* Name = "SV record 21.11.2026 18-04-09.txt";

class CheckCommandScene : public ConsoleScene {
 protected:
  std::string Recorded(const std::string& text, const std::string& name = Name) {
    WriteFile(Folder.File(name), text);
    return Folder.File(name);
  }
  std::string Log(const std::string& name = Name) const {
    return support::BytesOf(Folder.File("Checklog " + name));
  }
};

/// With the ends that lines have on a terminal.
std::string Shown(std::string text) {
  std::erase(text, '\r');
  return text;
}

TEST_F(CheckCommandScene, TellsTheLinesOfALogAndEachGap) {
  std::vector<std::int64_t> counters = Counters(3990, 100, 4000);
  counters.erase(counters.begin() + 50, counters.begin() + 53);
  const std::string file = Recorded(RecordingText(counters) + "97;90;1");

  EXPECT_EQ(Run({"check", file, "--log"}), ExitCode::Done);

  EXPECT_EQ(
      Results.str(),
      "Error log for file               : " + file +
          "\n"
          "Measurement started              : 21.11.2026 18:04:09\n"
          "Measurement stopped              : 09.03.2024 14:05:07\n"
          "Duration time of data aquisition : 03:59:02 hh:mm:ss;\n"
          "\n"
          "MAC adress sender                : not known (checked later)\n"
          "MAC adress receiver              : not known (checked later)\n"
          "Station ID                       : not known (checked later)\n"
          "Filter were set to               : not known (checked later)\n"
          "\n"
          "Count of received samples        : 97\n"
          "Count of lost samples            : 3\n"
          "Percentage of captured samples   : 97.0 %\n"
          "Longest continous data           : 49 samples; start: 1, end: 50; (acc. ~0.01225s)\n"
          "Count of received full waves     : 0\n"
          "The last line was cut and is not counted\n"
          "Gap                              : before line 51, counter 43; missing: 3\n");
  EXPECT_EQ(Shown(Log()), Results.str());
}

TEST_F(CheckCommandScene, ChecksEachStreamOfABusAt60Hz) {
  const std::string first =
      Recorded(RecordingText(Counters(0, 9600, 4800)), "1_" + std::string(Name));
  std::vector<std::int64_t> counters = Counters(0, 9600, 4800);
  counters.erase(counters.begin() + 4800);
  const std::string second = Recorded(RecordingText(counters), "2_" + std::string(Name));

  EXPECT_EQ(Run({"check", first, second}), ExitCode::Done);

  EXPECT_THAT(Results.str(), HasSubstr("\n\nError log for file               : " + second));
  EXPECT_THAT(Results.str(), HasSubstr("9600 samples; start: 1, end: 9600; (acc. ~2s)"));
  EXPECT_THAT(Results.str(), HasSubstr("before line 4801, counter 1; missing: 1\n"));
  EXPECT_EQ(Log("1_" + std::string(Name)), "") << "nobody asked for a file";
}

TEST_F(CheckCommandScene, TellsTheFiguresToAProgramToo) {
  const std::string file = Recorded(RecordingText({4798, 4799, 3}));

  EXPECT_EQ(Run({"check", file, "--json"}), ExitCode::Done);

  const nlohmann::json recording = Json().at("recordings").at(0);
  EXPECT_EQ(recording.at("file"), file);
  EXPECT_EQ(recording.at("started"), "2026-11-21 18:04:09");
  EXPECT_EQ(recording.at("round"), 4800);
  EXPECT_EQ(recording.at("received"), 3);
  EXPECT_EQ(recording.at("lost"), 3);
  EXPECT_EQ(recording.at("lastLineCut"), false);
  EXPECT_EQ(recording.at("gaps"),
            (nlohmann::json::array({{{"line", 3}, {"counter", 3}, {"missing", 3}}})));
}

TEST_F(CheckCommandScene, TakesTheRoundThatItIsTold) {
  const std::string file = Recorded(RecordingText({3998, 3999, 0}));

  EXPECT_EQ(Run({"check", file, "--json", "--round", "4800"}), ExitCode::Done);
  EXPECT_EQ(Json().at("recordings").at(0).at("lost"), 800);

  EXPECT_EQ(Run({"check", file, "--round", "3999"}), ExitCode::FileTrouble);
  EXPECT_THAT(Notes.str(), HasSubstr("its counter goes beyond 3998"));
}

TEST_F(CheckCommandScene, DoesNotKnowTheStartOfWhatWasRenamed) {
  const std::string file = Recorded(RecordingText({1, 2}), "renamed.txt");

  EXPECT_EQ(Run({"check", file}), ExitCode::Done);

  EXPECT_THAT(Results.str(), HasSubstr("Measurement started              : not known"));
  EXPECT_THAT(Results.str(), HasSubstr("Duration time of data aquisition : not known"));
  EXPECT_EQ(Run({"check", file, "--json"}), ExitCode::Done);
  EXPECT_TRUE(Json().at("recordings").at(0).at("started").is_null());
}

TEST_F(CheckCommandScene, ChecksTheOthersWhereOneCannotBe) {
  const std::string empty = Recorded("", "empty.txt");
  const std::string letters = Recorded("some letters\r\n", "letters.txt");
  const std::string huge = Recorded("0;99999999999999999999;1\r\n", "huge.txt");
  const std::string cut = Recorded("0;1;", "cut.txt");
  const std::string none = Folder.File("none.txt");
  const std::string good = Recorded(RecordingText({1, 2}));

  EXPECT_EQ(Run({"check", empty, letters, huge, cut, none, good, "--log"}), ExitCode::FileTrouble);

  EXPECT_EQ(Notes.str(), "vornik-cli: " + empty + ": it is empty\n" + "vornik-cli: " + letters +
                             ": it holds a line that is no sample\n" + "vornik-cli: " + huge +
                             ": it holds a line that is no sample\n" + "vornik-cli: " + cut +
                             ": it holds a line that is no sample\n" + "vornik-cli: " + none +
                             ": " + platform::Failure(53).Text() + "\n");
  EXPECT_THAT(Results.str(), HasSubstr("Count of received samples        : 2\n"));
  EXPECT_EQ(Log("empty.txt"), "");
  EXPECT_NE(Log(), "");
}

TEST_F(CheckCommandScene, TellsWhereTheRightToReadIsMissing) {
  const std::string file = Recorded(RecordingText({1, 2}));
  support::FailingFiles guarded(Files);
  guarded.FailingRead = 1;
  guarded.Number = platform::failure::PermissionDenied;
  const console::Machine machine = MachineWith(guarded);
  const std::vector<const char*> words{"vornik-cli", "check", file.c_str()};
  EXPECT_EQ(console::Run(static_cast<int>(words.size()), words.data(), machine),
            ExitCode::NotPermitted);
  EXPECT_EQ(Notes.str(), "vornik-cli: " + file + ": Permission denied\n");
}

}  // namespace
}  // namespace console
