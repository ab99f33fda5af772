#pragma once

#include <cstdint>

#include "capture/acquisition_state.h"
#include "capture/modes.h"
#include "forms/window_controls.h"

namespace packetroutines {

/// The verbs of a run: the one class that writes the run's flags and switches its three timers.
class RunControl {
 public:
  RunControl(RunFields& run, forms::TimerControls& timers) : run_(run), timers_(timers) {}

  /// The next frame sets the length that frames are expected to have.
  void MeasureLength() { run_.PacketLengthPending = true; }
  /// That frame is here.
  void LengthComes() { run_.PacketLengthPending = false; }
  void TakeLength(std::int16_t length) {
    run_.PacketLength = length;
    run_.PacketLengthPending = false;
  }

  /// A mode is on, and the watchdog waits for its first usable frame.
  void SetMode(const Mode& mode) {
    timers_.Timer1.Interval = mode.TimeOut;
    timers_.Timer1.Enabled = true;
    run_.*mode.Flag = true;
  }
  void Clear(const Mode& mode) { run_.*mode.Flag = false; }
  void Clear(ModeName mode) { Clear(*mode.Find()); }
  void ClearModes() {
    for (const Mode& mode : Modes) Clear(mode);
  }
  void CaptureBegan() { run_.CaptureRunning = true; }
  void CaptureEnded() { run_.CaptureRunning = false; }

  /// Nothing is awaited any more.
  void CallOffWatchdog() { timers_.Timer1.Enabled = false; }
  /// How long the next restart waits, in ms, whoever asks for it.
  void RestartPause(std::int32_t pause) { timers_.Timer2.Interval = pause; }
  void Restart() { timers_.Timer2.Enabled = true; }
  void CallOffRestart() { timers_.Timer2.Enabled = false; }
  /// The buttons of the live views come back a second from now, unless that is under way already.
  void ReleaseButtons() { timers_.Timer3.Enabled = true; }
  /// Nothing is locked; a release waits `lock` ms from now on.
  void LoadRelease(std::int32_t lock) {
    CallOffRelease();
    timers_.Timer3.Interval = lock;
  }
  void CallOffRelease() { timers_.Timer3.Enabled = false; }

  /// No timer of a run goes off any more.
  void CallOffTimers() {
    CallOffWatchdog();
    CallOffRestart();
    CallOffRelease();
  }

  /// A page is being left, until `Left`: what comes due in its pumps starts nothing.
  void Leave() { ++run_.Leaving; }
  void Left() { --run_.Leaving; }
  /// Whatever run belonged to the page is over.
  void LeavePage() { ++run_.PagesLeft; }
  void StationChosen() { ++run_.StationChanges; }

 private:
  RunFields& run_;
  forms::TimerControls& timers_;
};

}  // namespace packetroutines
