#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <exception>
#include <iostream>
#include <memory>

#include "adapters/rights/capture_right.h"
#include "adapters/rights/launcher.h"
#include "adapters/rights/right_advice.h"
#include "adapters/steady_clock.h"
#include "adapters/system_bus_taps.h"
#include "adapters/windows1252.h"
#include "console/console.h"
#include "system/calendar.h"
#include "system/computer_files.h"
#include "system/disk_sync.h"
#include "system/places.h"
#include "system/posix/termination_signals.h"
#include "system/sleep.h"

namespace {

/// Blocks the thread until the time is over or the user asks for the end.
void SleepOrEnd(const host::TerminationSignals& signals, std::chrono::nanoseconds time) {
  pollfd request{signals.Descriptor(), POLLIN, 0};
  const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(time).count();
  poll(&request, 1, static_cast<int>(milliseconds));
}

console::ExitCode Run(int argc, const char* const* argv) {
  const adapters::SteadyClock clock;
  const adapters::Windows1252 code;
  const platform::NumberText numbers;
  const host::Calendar calendar;
  host::ComputerFiles files;
  host::TerminationSignals signals(host::SecondRequest::EndsAtOnce);
  bool endAsked = false;
  const std::unique_ptr<platform::SleepInhibitor> awake = host::NewSleepInhibitor();
  const std::unique_ptr<platform::DiskSync> sync = host::MakeDiskSync();
  adapters::SystemBusTaps taps(clock, {host::DataFolder() / "vornik" / "captures",
                                       adapters::AdviceOn(adapters::FindWayToRight())});
  const console::Machine machine{
      .Results = std::cout,
      .Notes = std::cerr,
      .Clock = clock,
      .Calendar = calendar,
      .Code = code,
      .Numbers = numbers,
      .Files = files,
      .Taps = taps,
      .Captures = taps,
      .Sleep = [&](std::chrono::nanoseconds time) { SleepOrEnd(signals, time); },
      .EndAsked = [&] { return endAsked = endAsked || signals.Take(); },
      .OnTerminal = isatty(STDERR_FILENO) != 0,
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
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return static_cast<int>(Run(argc, argv));
  } catch (const std::exception& error) {
    // What fails before a command runs has no other place to be told.
    std::fputs(error.what(), stderr);
    return static_cast<int>(console::ExitCode::FileTrouble);
  }
}
