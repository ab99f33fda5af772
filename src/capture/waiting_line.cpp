#include "capture/waiting_line.h"

#include "capture/modes.h"
#include "config/setup_view.h"

namespace packetroutines {

namespace {

/// How often the counts are looked at, in ms.
constexpr std::int32_t LookInterval = 500;
/// A run may go this long without a block before a word is said.
constexpr std::chrono::seconds Patience{2};

}  // namespace

WaitingLine::WaitingLine(AcquisitionState& state, const config::Settings& settings,
                         const config::RunSettings& present, forms::SharedControls& shared,
                         const forms::RunButtons& buttons, platform::TimerQueue& timers,
                         const platform::NumberText& numbers)
    : state_(state),
      settings_(settings),
      present_(present),
      shared_(shared),
      buttons_(buttons),
      timers_(timers),
      numbers_(numbers),
      timer_(timers) {
  timer_.Interval = LookInterval;
  timer_.Elapsed = [this] { Timer_Timer(); };
}

platform::QuietLine* WaitingLine::LineOfRun() const {
  if (state_.Leaving > 0) return nullptr;
  for (const Mode& mode : Modes) {
    if (mode.QuietLine == NoLine || !(state_.*mode.Flag)) continue;
    if (mode.RunButton(buttons_).Value) return &shared_.QuietLine[mode.QuietLine];
  }
  return nullptr;
}

void WaitingLine::CaptureStopped() {
  if (shown_) {
    // The next burst begins. The pause before it was the user's own choice and may be long.
    since_ = timers_.Now();
    shown_ = false;
  }
  FollowRun();
}

void WaitingLine::FollowRun() {
  platform::QuietLine* line = LineOfRun();
  if (line == line_) return;
  Silence();
  line_ = line;
  timer_.Enabled = line != nullptr;
  if (line != nullptr) WaitAnew();
}

void WaitingLine::BlockShown() {
  if (line_ == nullptr) return;
  Silence();
  WaitAnew();
  shown_ = true;
}

void WaitingLine::WaitAnew() {
  state_.Counters = {};
  station_ = settings_.FilterContent[0];
  since_ = timers_.Now();
  shown_ = false;
}

void WaitingLine::Timer_Timer() {
  FollowRun();
  if (line_ == nullptr) return;
  if (settings_.FilterContent[0] != station_) {
    Silence();
    WaitAnew();
  }
  const bool resting = shown_ && !state_.CaptureRunning;
  if (!resting && timers_.Now() - since_ >= Patience) Say(Text());
}

void WaitingLine::Say(const std::string& text) {
  // What another has to say stays.
  const std::string& stands = line_->Caption;
  if (!stands.empty() && stands != said_) return;
  said_ = text;
  line_->Say(said_);
}

void WaitingLine::Silence() {
  if (said_.empty()) return;
  if (line_->Caption == said_) line_->Say({});
  said_.clear();
}

std::string WaitingLine::Text() const {
  const std::uint64_t frames = state_.Counters.Frames;
  const std::string came = frames == 0   ? "no frame came in"
                           : frames == 1 ? "1 frame came in"
                                         : Number(frames) + " frames came in";
  if (station_.empty() || station_ == config::NoContent) {
    return "No station is chosen: " + came + ". See 'Packet content filter' under 'Setup'.";
  }
  return "Waiting for \"" + station_ + "\": " + came + (frames == 0 ? "" : Whereabouts()) + ".";
}

/// What became of the frames. Only what is not zero is named, but for the frames of the station.
std::string WaitingLine::Whereabouts() const {
  const RunCounters& counters = state_.Counters;
  const std::uint64_t held = counters.HeldId;
  std::string text = ", " + (held == 0 ? "none" : Number(held)) + " held this ID";
  if (counters.TooLong > 0) {
    text += ", " + Number(counters.TooLong) + (counters.TooLong == 1 ? " was" : " were") +
            " longer than expected";
  }
  if (counters.NotLocated > 0) {
    const bool all = counters.NotLocated == held;
    text += (all ? ", their samples" : ", the samples of " + Number(counters.NotLocated)) +
            std::string(" could not be located");
  } else if (counters.SilentBlocks > 0) {
    text += ", the signal is silent";
  } else if (held > 0 && held < static_cast<std::uint64_t>(present_.BaseSamples)) {
    text += ", a block takes " + Number(static_cast<std::uint64_t>(present_.BaseSamples));
  }
  return text;
}

std::string WaitingLine::Number(std::uint64_t count) const {
  return numbers_.General(static_cast<double>(count));
}

}  // namespace packetroutines
