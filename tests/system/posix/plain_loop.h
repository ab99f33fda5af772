#pragma once

#include <chrono>
#include <optional>
#include <thread>

#include "adapters/steady_clock.h"
#include "platform/loop/guard.h"
#include "platform/loop/running_program.h"
#include "platform/loop/waiting_queue.h"
#include "support/fake_platform.h"

namespace host {

/// A thread that sleeps between its events, with boxes that answer themselves. The end of the
/// program is only noted.
struct PlainLoop {
  support::Journal Journal;
  support::FakeDialogs Dialogs{Journal};
  std::optional<int> ExitCode;
  platform::RunningProgram Program{[] {}, [this](int code) { ExitCode = code; }};
  platform::Guard Entry{Dialogs, Program};
  adapters::SteadyClock Clock;
  platform::WaitingQueue Queue{
      Clock, Entry, [](std::chrono::nanoseconds time) { std::this_thread::sleep_for(time); }};
};

}  // namespace host
