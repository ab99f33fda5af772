#include "shell/dropped_files.h"

#include "base/failure.h"

namespace formroutines {

namespace {

/// How long a trouble is told, in ms.
constexpr std::int32_t TellingTime = 15'000;

/// From this tab on each has a quiet line, in the same order.
constexpr std::int16_t FirstTabWithLine = forms::tab::Values;
static_assert(forms::quiet_line::Setup == forms::tab::Setup - FirstTabWithLine);
static_assert(forms::quiet_line::Recorder == forms::tab::Recorder - FirstTabWithLine);

}  // namespace

DroppedFiles::DroppedFiles(forms::Main& main, packetroutines::Acquisition& acquisition,
                           RecordingQuestion& question, platform::TimerQueue& timers)
    : main_(main), capture_(acquisition.Capture), question_(question), timer_(timers) {
  timer_.Interval = TellingTime;
  timer_.Elapsed = [this] { Silence(); };
}

void DroppedFiles::Take(const std::vector<std::string>& paths) {
  Silence();
  if (paths.size() != 1) {
    Tell("Several files were dropped, and none was taken. Please drop one capture file at a time.");
    return;
  }
  try {
    const std::int32_t place = capture_.AddFile(paths.front());
    if (question_.Allows([this, place] { Choose(place); })) Choose(place);
  } catch (const platform::Failure& failure) {
    Tell(failure.Text());
  }
}

void DroppedFiles::Choose(std::int32_t place) {
  GoToSetup();
  main_.Combo1.ListIndex = place;
}

platform::QuietLine& DroppedFiles::LineOfPage() {
  // Nothing runs on the page that has no line, so leaving it ends nothing.
  if (main_.TabStrip1.SelectedTab < FirstTabWithLine) GoToSetup();
  return main_.QuietLine[static_cast<std::size_t>(main_.TabStrip1.SelectedTab - FirstTabWithLine)];
}

void DroppedFiles::GoToSetup() {
  if (main_.TabStrip1.SelectedTab == forms::tab::Setup) return;
  main_.TabStrip1.SelectedTab = forms::tab::Setup;
}

void DroppedFiles::Tell(const std::string& trouble) {
  line_ = &LineOfPage();
  before_ = line_->Caption;
  said_ = trouble;
  line_->Say(said_);
  timer_.Enabled = false;
  timer_.Enabled = true;
}

void DroppedFiles::Silence() {
  timer_.Enabled = false;
  if (line_ != nullptr && line_->Caption == said_) line_->Say(before_);
  line_ = nullptr;
}

}  // namespace formroutines
