// Short recordings, of which each single work on a file fails once.

#include <filesystem>
#include <map>

#include "console_scene.h"
#include "program/bus_file.h"
#include "recorder/file_work.h"
#include "support/scene.h"

namespace console {
namespace {

using recorder_tests::Work;
using support::FailingFiles;

constexpr Work Works[] = {
    {"opening", &FailingFiles::Opens, &FailingFiles::FailingOpen},
    {"writing", &FailingFiles::Writes, &FailingFiles::FailingWrite},
    {"closing", &FailingFiles::Closes, &FailingFiles::FailingClose},
    {"reading", &FailingFiles::Reads, &FailingFiles::FailingRead},
    {"renaming", &FailingFiles::Renames, &FailingFiles::FailingRename},
    {"deleting", &FailingFiles::Deletes, &FailingFiles::FailingDelete},
};

/// By their names.
using Contents = std::map<std::string, std::string>;

class EachFailureOfACommand : public ConsoleScene,
                              public testing::WithParamInterface<std::tuple<const char*, bool>> {
 protected:
  static const char* Format() { return std::get<0>(GetParam()); }
  static bool Both() { return std::get<1>(GetParam()); }

  EachFailureOfACommand() {
    // A second ring opens its file anew; of two streams one each will do.
    BusFile()
        .Add((Both() ? 1 : 2) * 4000 + 10, Both() ? Words{"MU01", "MU02"} : Words{"MU01"})
        .Save(Bus);
  }

  /// The bus comes from the file whatever the format is.
  console::Machine MachineOn(FailingFiles& disk) {
    return {.Results = Results,
            .Notes = Notes,
            .Clock = Clock,
            .Calendar = Calendar,
            .Code = Code,
            .Numbers = Numbers,
            .Files = disk,
            .Taps = Captures,
            .Captures = Captures,
            .Sleep = [this](std::chrono::nanoseconds time) { Clock.Advance(time); },
            .EndAsked = [] { return false; }};
  }
  /// Records the bus into an empty folder, onto a disk that may fail.
  ExitCode Record(FailingFiles& disk) {
    std::filesystem::remove_all(Data);
    std::filesystem::create_directory(Data);
    Results.str({});
    Notes.str({});
    std::vector<const char*> words{"vornik-cli", "record",   Bus.c_str(),  "--fast",    "--format",
                                   Format(),     "--folder", Data.c_str(), "--station", "MU01"};
    if (Both()) words.insert(words.end(), {"--station", "MU02"});
    return console::Run(static_cast<int>(words.size()), words.data(), MachineOn(disk));
  }
  /// What lies in the folder, but for what tells of failures by itself, for the log, which a check
  /// writes anew, and for the empty file beside two streams of text.
  Contents Stored() const {
    Contents stored;
    for (const std::string& name : NamesIn(Data)) {
      const bool samples = !name.starts_with("Events ") && !name.starts_with("Errorlog ");
      if (!samples) continue;
      std::string bytes = support::BytesOf(Data + "/" + name);
      // The sheet of a second stream gets its last record with the end of the program.
      if (name.starts_with("2_") && name.ends_with(".xls")) {
        bytes.erase(bytes.find_last_not_of(std::string("\x0A\0", 2)) + 1);
      }
      if (!bytes.empty()) stored[name] = bytes;
    }
    return stored;
  }

  const std::string Bus = Folder.File("bus.pcap");
  const std::string Data = Folder.File("data");
};

TEST_P(EachFailureOfACommand, EndsItWithACodeAndALineWhereAFileIsNotAsItShouldBe) {
  FailingFiles disk(Files);
  ASSERT_EQ(Record(disk), ExitCode::Done) << Notes.str();
  const Contents sound = Stored();
  for (const Work& work : Works) {
    for (int n = 1; n <= disk.*work.Count; ++n) {
      SCOPED_TRACE(work.Name + std::string(" ") + std::to_string(n));
      FailingFiles failing(Files);
      failing.*work.Failing = n;
      failing.Number = n % 2 == 0 ? platform::failure::DiskFull : platform::failure::DeviceIo;
      const ExitCode code = Record(failing);
      if (Stored() == sound) continue;
      EXPECT_EQ(code, ExitCode::FileTrouble);
      EXPECT_NE(Notes.str().find(n % 2 == 0 ? "isk full" : "Device I/O error"), std::string::npos)
          << Notes.str();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, EachFailureOfACommand,
                         testing::Combine(testing::Values("text", "worksheet", "comtrade", "cff"),
                                          testing::Bool()),
                         [](const auto& scene) {
                           return std::string(std::get<0>(scene.param)) +
                                  (std::get<1>(scene.param) ? "Two" : "One");
                         });

}  // namespace
}  // namespace console
