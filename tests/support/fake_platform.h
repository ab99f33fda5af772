#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "adapters/windows1252.h"
#include "base/number_text.h"
#include "base/program.h"
#include "platform/controls/window.h"
#include "platform/loop/timer_queue.h"
#include "platform/services/dialogs.h"
#include "platform/services/event_queue.h"
#include "platform/services/settings_store.h"
#include "platform/services/standing_box.h"
#include "support/fake_calendar.h"
#include "support/fake_capture.h"
#include "support/fake_disk_sync.h"
#include "support/fake_pointer.h"
#include "support/fake_print.h"
#include "support/fake_services.h"
#include "support/journal.h"
#include "support/manual_clock.h"

namespace support {

/// The program ended; the scene is over.
struct SceneEnded {};

/// The event queue of a test: a pump runs the timers that are due and what the test placed there.
class FakeEvents : public platform::EventQueue {
 public:
  FakeEvents(Journal& journal, ManualClock& clock, platform::TimerQueue& timers)
      : journal_(journal), clock_(clock), timers_(timers) {}

  void Pump() override;
  void WaitMs(std::int32_t ms) override;
  /// Places an event into the n-th pump from now; 1 is the next one.
  void AtPump(int n, std::function<void()> event) {
    placed_.insert({pumps_ + n, std::move(event)});
  }
  /// Pumps so far.
  int Count() const { return pumps_; }

 private:
  Journal& journal_;
  ManualClock& clock_;
  platform::TimerQueue& timers_;
  int pumps_ = 0;
  std::multimap<int, std::function<void()>> placed_;
};

/// Boxes that answer themselves and are written down.
class FakeDialogs : public platform::Dialogs {
 public:
  explicit FakeDialogs(Journal& journal) : journal_(journal) {}

  platform::Answer Show(const platform::Message& message) override;
  void ShowTimed(const platform::TimedMessage& message) override;

  std::vector<platform::Message> Shown;
  std::vector<platform::TimedMessage> TimedShown;
  /// The answers to come; without one a box is answered with OK, and a question with Yes.
  std::deque<platform::Answer> Answers;
  /// Runs while a box stands open.
  std::function<void()> WhileOpen;
  platform::StandingBox::Listener Stands;

 private:
  Journal& journal_;
};

/// Ending the program leaves the scene.
class FakeProgram : public platform::Program {
 public:
  explicit FakeProgram(Journal& journal) : journal_(journal) {}
  [[noreturn]] void End() override {
    journal_.push_back("end");
    throw SceneEnded();
  }

 private:
  Journal& journal_;
};

/// A settings store in memory.
class FakeStore : public platform::SettingsStore {
 public:
  std::string Get(const std::string& application, const std::string& section,
                  const std::string& key, const std::string& fallback) const override;
  void Set(const std::string& application, const std::string& section, const std::string& key,
           const std::string& text) override;
  std::string Place(const std::string& application) const override {
    return "settings of " + application;
  }

  /// Texts by key of application "Vornik", section "INI".
  std::map<std::string, std::string> Texts;
  /// The keys in the order in which they were written.
  std::vector<std::string> Written;
};

/// Everything that the program asks of its platform, played by the test.
class FakePlatform {
 public:
  FakePlatform();
  FakePlatform(const FakePlatform&) = delete;
  FakePlatform& operator=(const FakePlatform&) = delete;

  support::Journal Journal;
  ManualClock Clock;
  platform::TimerQueue Timers{Clock};
  FakeEvents Events{Journal, Clock, Timers};
  FakeDialogs Dialogs{Journal};
  FakeProgram Runtime{Journal};
  FakeStore Store;
  FakeCapture Capture{Journal, Clock};
  adapters::Windows1252 Code;
  platform::NumberText Numbers;
  FakeFiles Files;
  FakeDiskSync Sync;
  FakeFolders Folders;
  FakePrinters Printers;
  FakeSurface Surface;
  FakeClipboard Clipboard{Journal};
  FakeLinks Links;
  FakeCalendar Calendar;
  FakePointer Pointer{Journal};
  FakeSleep Sleep;
  platform::Screen Screen{1920 * 15, 1080 * 15};

  /// Lets time pass, firing each timer when it is due.
  void Elapse(std::chrono::milliseconds time);
};

}  // namespace support
