#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "capture/acquisition.h"
#include "forms/main_form.h"
#include "platform/controls/timer.h"
#include "platform/loop/timer_queue.h"
#include "shell/recording_question.h"

namespace formroutines {

/// A capture file that the user drops on the window is chosen on the Setup view as the network
/// adapter, for this run of the program. The way there is a change of the tab like any other, so
/// that it ends a run, and asks first where that is a recording. What cannot be played changes
/// nothing, and a quiet line says why for a while.
class DroppedFiles {
 public:
  DroppedFiles(forms::Main& main, packetroutines::Acquisition& acquisition,
               RecordingQuestion& question, platform::TimerQueue& timers);

  /// The user has dropped files on the window: their paths, and the addresses of what is no file of
  /// this computer.
  void Take(const std::vector<std::string>& paths);

 private:
  void Choose(std::int32_t place);
  void Tell(const std::string& trouble);
  /// Gives the line back to what stood there.
  void Silence();
  platform::QuietLine& LineOfPage();
  void GoToSetup();

  forms::Main& main_;
  packetroutines::CaptureSession& capture_;
  RecordingQuestion& question_;
  platform::Timer timer_;
  platform::QuietLine* line_ = nullptr;
  std::string said_;
  std::string before_;
};

}  // namespace formroutines
