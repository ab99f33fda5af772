#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "console/machine.h"
#include "console/program/clock_calendar.h"
#include "console/program/line_dialogs.h"
#include "console/program/memory_store.h"
#include "console/program/no_links.h"
#include "console/program/note_lines.h"
#include "platform/loop/guard.h"
#include "platform/loop/loop.h"
#include "platform/loop/running_program.h"
#include "platform/loop/waiting_queue.h"
#include "shell/application.h"

namespace console {

/// What a user of the window would set up.
struct Setup {
  std::string Adapter;
  platform::TapPace Pace = platform::TapPace::AsRecorded;
  /// One or two.
  std::vector<std::string> Stations;
  /// The user's part of the capture filter.
  std::string Filter;
  /// The tab that the program opens.
  std::int16_t Tab = 0;
  /// Where recordings go, and in which format by its stored name.
  std::string Folder;
  std::string Format = "TXT";
  /// Hz.
  std::string Frequency = "50";
  /// Places in the lists of units.
  std::int16_t UnitCurrent = 0;
  std::int16_t UnitVoltage = 0;
  /// Place in the list of number formats.
  std::int16_t Resolution = 0;
  /// Frames in a block.
  std::int32_t Samplings = 400;
  /// Between two blocks, in ms.
  std::int32_t Interval = 500;
};

/// Has what a quiet line of the program says told with the notes; once a minute, since what a line
/// says may change with every frame, unless it is `urgent` by now.
void TellWhatIsSaid(platform::QuietLine& line, NoteLines& notes, const platform::Clock& clock,
                    std::function<bool()> urgent);

/// The whole program without a window, from its load to its end: one adapter, settings of its own,
/// and boxes that are lines. What a user does comes in by `Do`, as it does from a window.
class Instrument {
 public:
  /// Fails where nothing can be captured from the adapter.
  Instrument(const Machine& machine, const Setup& setup, NoteLines& notes);
  Instrument(const Instrument&) = delete;
  Instrument& operator=(const Instrument&) = delete;
  ~Instrument();

  void Do(const std::function<void()>& action) { guard_(action); }
  /// Handles what comes until the condition holds, the user asks for the end, a capture file is
  /// over or the program has ended.
  void RunUntil(const std::function<bool()>& done);

  formroutines::Application& Program() { return *app_; }
  const LineDialogs& Boxes() const { return dialogs_; }
  const platform::NamedCapture& Capture() const { return *capture_; }
  const platform::Clock& Time() const { return capture_->Time(); }
  /// A failure has ended the program.
  bool Failed() const { return exitCode_.value_or(0) != 0; }

 private:
  void Wait(std::chrono::nanoseconds time);
  static MemoryStore::Texts TextsOf(const Setup& setup);

  const Machine& machine_;
  std::unique_ptr<platform::NamedCapture> capture_;
  LineDialogs dialogs_;
  std::optional<int> exitCode_;
  platform::RunningProgram program_;
  platform::Guard guard_;
  platform::WaitingQueue queue_;
  platform::QueueAlarm forTimers_{queue_};
  platform::QueueAlarm forFrames_{queue_};
  platform::Loop loop_;
  MemoryStore store_;
  NoLinks links_;
  ClockCalendar calendar_;
  std::unique_ptr<formroutines::Application> app_;
};

}  // namespace console
