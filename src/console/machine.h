#pragma once

#include <chrono>
#include <functional>
#include <ostream>

#include "base/number_text.h"
#include "platform/clock.h"
#include "platform/services/bus_tap.h"
#include "platform/services/calendar.h"
#include "platform/services/code_page.h"
#include "platform/services/disk_sync.h"
#include "platform/services/file_system.h"
#include "platform/services/named_capture.h"
#include "platform/services/sleep_inhibitor.h"

namespace console {

/// What a command is lent of the computer that it runs on.
struct Machine {
  /// Results, and nothing else.
  std::ostream& Results;
  /// What a user is told beside them.
  std::ostream& Notes;
  const platform::Clock& Clock;
  const platform::Calendar& Calendar;
  const platform::CodePage& Code;
  const platform::NumberText& Numbers;
  platform::FileSystem& Files;
  platform::BusTaps& Taps;
  platform::NamedCaptures& Captures;
  /// Blocks for so long, or shorter where the user ends the command meanwhile.
  std::function<void(std::chrono::nanoseconds)> Sleep;
  /// The user has asked for the end: Ctrl+C, or the system's request to terminate.
  std::function<bool()> EndAsked;
  /// What the user is told is read on a terminal.
  bool OnTerminal = false;
  /// What keeps the computer awake, and what brings files to the disk; null where there is none.
  platform::SleepInhibitor* Awake = nullptr;
  platform::DiskSync* Sync = nullptr;
};

}  // namespace console
