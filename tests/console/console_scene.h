#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "adapters/system_bus_taps.h"
#include "adapters/windows1252.h"
#include "console/console.h"
#include "support/fake_calendar.h"
#include "support/manual_clock.h"
#include "support/played_taps.h"
#include "support/real_files.h"

namespace console {

/// The program without a window on a played computer: its words go in, and what it writes is kept.
class ConsoleScene : public testing::Test {
 protected:
  using Words = std::vector<std::string>;

  /// Runs a command to its end, without the name of the program in front.
  ExitCode Run(const Words& words) {
    std::vector<const char*> arguments{"vornik-cli"};
    for (const std::string& word : words) arguments.push_back(word.c_str());
    Results.str({});
    Notes.str({});
    return console::Run(static_cast<int>(arguments.size()), arguments.data(), Machine);
  }
  /// The played computer with other files.
  console::Machine MachineWith(platform::FileSystem& files) { return MachineWith(files, Calendar); }
  console::Machine MachineWith(platform::FileSystem& files, const platform::Calendar& calendar) {
    return {.Results = Results,
            .Notes = Notes,
            .Clock = Clock,
            .Calendar = calendar,
            .Code = Code,
            .Numbers = Numbers,
            .Files = files,
            .Taps = Taps,
            .Captures = Captures,
            .Sleep =
                [this](std::chrono::nanoseconds time) {
                  Clock.Advance(time);
                  if (WhileResting) WhileResting();
                },
            .EndAsked = [this] { return EndAsked; }};
  }
  /// What lies in a folder, in the order of the alphabet.
  static std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  nlohmann::json Json() const { return nlohmann::json::parse(Results.str()); }
  /// The stream of a bus's only one.
  nlohmann::json OnlyStream() const {
    const nlohmann::json streams = Json().at("streams");
    EXPECT_EQ(streams.size(), 1U);
    return streams.at(0);
  }

  support::TemporaryFolder Folder;
  support::ManualClock Clock;
  support::FakeCalendar Calendar;
  adapters::Windows1252 Code;
  platform::NumberText Numbers;
  support::RealFiles Files;
  support::PlayedTaps Taps{Clock};
  /// The simulated bus and capture files; no interfaces.
  adapters::SystemBusTaps Captures{
      Clock, {}, [] { return std::vector<adapters::NetworkInterface>(); }};
  std::ostringstream Results;
  std::ostringstream Notes;
  /// Runs whenever the program rests.
  std::function<void()> WhileResting;
  bool EndAsked = false;
  console::Machine Machine = MachineWith(Files);
};

}  // namespace console
