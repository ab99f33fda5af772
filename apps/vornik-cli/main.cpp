#include <chrono>
#include <cstdio>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "adapters/rights/capture_right.h"
#include "adapters/rights/launcher.h"
#include "adapters/rights/right_advice.h"
#include "adapters/steady_clock.h"
#include "adapters/system_bus_taps.h"
#include "adapters/windows1252.h"
#include "console/console.h"
#include "system/calendar.h"
#include "system/command_line.h"
#include "system/computer_files.h"
#include "system/disk_sync.h"
#include "system/end_request.h"
#include "system/places.h"
#include "system/sleep.h"

namespace {

console::ExitCode Run(int argc, const char* const* argv) {
  const adapters::SteadyClock clock;
  const adapters::Windows1252 code;
  const platform::NumberText numbers;
  const host::Calendar calendar;
  host::ComputerFiles files;
  const std::unique_ptr<host::EndRequest> end = host::NewEndRequest();
  const std::unique_ptr<platform::SleepInhibitor> awake = host::NewSleepInhibitor();
  const std::unique_ptr<platform::DiskSync> sync = host::MakeDiskSync();
  adapters::SystemBusTaps taps(clock, {host::DataFolder() / "vornik" / "captures",
                                       adapters::AdviceOn(adapters::FindWayToRight())});
  const console::Machine machine{.Results = std::cout,
                                 .Notes = std::cerr,
                                 .Clock = clock,
                                 .Calendar = calendar,
                                 .Code = code,
                                 .Numbers = numbers,
                                 .Files = files,
                                 .Taps = taps,
                                 .Captures = taps,
                                 .Sleep = [&](std::chrono::nanoseconds time) { end->Await(time); },
                                 .EndAsked = [&] { return end->Came(); },
                                 .OnTerminal = host::NotesAreOnTerminal(),
                                 .Awake = awake.get(),
                                 .Sync = sync.get()};
  return console::Run(argc, argv, machine);
}

}  // namespace

int main(int argc, char** argv) {
  adapters::StartThroughLauncher(argc, argv);
  adapters::GainNoMoreRights();
  adapters::ReserveCaptureRight();
  std::ios::sync_with_stdio(false);
  // A recording goes on where nobody reads the names of its files any more.
  host::ReadyStreams();
  try {
    const std::vector<std::string> words = host::Words(argc, argv);
    std::vector<const char*> arguments;
    for (const std::string& word : words) arguments.push_back(word.c_str());
    return static_cast<int>(Run(static_cast<int>(arguments.size()), arguments.data()));
  } catch (const std::exception& error) {
    // What fails before a command runs has no other place to be told.
    std::fputs(error.what(), stderr);
    return static_cast<int>(console::ExitCode::FileTrouble);
  }
}
