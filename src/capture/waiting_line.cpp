#include "capture/waiting_line.h"

#include "capture/modes.h"

namespace packetroutines {

namespace {

/// How often the counts are looked at, in ms.
constexpr std::int32_t LookInterval = 500;
/// A run may go this long without a block before a word is said.
constexpr std::chrono::seconds Patience{2};
/// The end of an outage is told for this long.
constexpr std::chrono::seconds NewsTime{10};
/// Frames that are too long and looked at between two looks: enough to meet every sender of a full
/// bus, and next to nothing of the time.
constexpr std::int32_t LooksAtLonger = 256;

}  // namespace

WaitingLine::WaitingLine(AcquisitionState& state, const config::Settings& settings,
                         const config::RunSettings& present, forms::SharedControls& shared,
                         const forms::RunButtons& buttons, CaptureSession& capture,
                         StreamWatch& watch, platform::TimerQueue& timers,
                         const platform::NumberText& numbers)
    : state_(state),
      streamFields_(state),
      settings_(settings),
      shared_(shared),
      buttons_(buttons),
      capture_(capture),
      watch_(watch),
      timers_(timers),
      text_(state, settings, present, numbers),
      unfit_(settings, numbers),
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
    streams_[0].Since = timers_.Now();
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
  if (line != nullptr) BeginAnew();
}

void WaitingLine::BeginAnew() {
  for (std::size_t stream = 0; stream < streams_.size(); ++stream) {
    streams_[stream] = {};
    streams_[stream].Content = settings_.FilterContent[stream];
    streams_[stream].Looks.fill(watch_.Track(stream).Totals());
    WaitAnew(streams_[stream]);
  }
  shown_ = false;
  anyShown_ = false;
  streamFields_.LooksAtLonger = LooksAtLonger;
  framesAtLook_ = state_.Counters.Frames;
  outage_ = platform::Presence::There;
  newsUntil_ = timers_.Now();
}

void WaitingLine::WaitAnew(Awaited& stream) {
  stream.From = state_.Counters;
  stream.Since = timers_.Now();
}

void WaitingLine::BlockShown() {
  if (line_ == nullptr) return;
  LookAtLocations();
  LookAtAdapter();
  WaitAnew(streams_[0]);
  shown_ = true;
  anyShown_ = true;
  if (!said_.empty()) Tell();
}

bool WaitingLine::StationsChanged() const {
  for (std::size_t stream = 0; stream < streams_.size(); ++stream) {
    if (settings_.FilterContent[stream] != streams_[stream].Content) return true;
  }
  return false;
}

void WaitingLine::Timer_Timer() {
  FollowRun();
  if (line_ == nullptr) return;
  if (StationsChanged()) BeginAnew();
  LookAtSecondStream();
  LookAtLocations();
  LookAtDoubled();
  LookAtAdapter();
  watch_.LookAgain();
  streamFields_.LooksAtLonger = LooksAtLonger;
  Tell();
}

void WaitingLine::LookAtSecondStream() {
  // No view shows the second stream: it is there as long as its frames come.
  Awaited& second = streams_[1];
  if (state_.Counters.Streams[1].HeldId != second.From.Streams[1].HeldId) WaitAnew(second);
}

void WaitingLine::LookAtLocations() {
  for (std::size_t stream = 0; stream < streams_.size(); ++stream) {
    if (state_.OffsetsKnown[stream]) streams_[stream].Located = state_.SamplesLocated[stream];
  }
}

void WaitingLine::LookAtDoubled() {
  for (std::size_t stream = 0; stream < streams_.size(); ++stream) {
    Awaited& told = streams_[stream];
    const sv::TrackTotals& now = watch_.Track(stream).Totals();
    // Two looks make a second.
    told.OfLastSecond = now - told.Looks[0];
    told.Looks = {told.Looks[1], now};
  }
}

void WaitingLine::LookAtAdapter() {
  const bool still = state_.Counters.Frames == framesAtLook_;
  framesAtLook_ = state_.Counters.Frames;
  // Between two bursts no frame is to come.
  if (still && !state_.CaptureRunning) return;
  // In an outage frames that had waited for a busy program come from before it.
  const bool ask = still || outage_ != platform::Presence::There;
  const platform::Presence present = ask ? capture_.AdapterPresence() : platform::Presence::There;
  if (outage_ != platform::Presence::There && present == platform::Presence::There) {
    lastOutage_ = outage_;
    newsUntil_ = timers_.Now() + NewsTime;
  }
  if (present != outage_ && Adapter) Adapter->AdapterChanged(present);
  outage_ = present;
}

void WaitingLine::Tell() {
  const std::string text = Text();
  if (text.empty()) {
    Silence();
  } else {
    Say(text);
  }
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
  if (outage_ != platform::Presence::There) return WaitingText::Outage(outage_);
  std::string text;
  const auto add = [&](const std::string& sentence) {
    if (!text.empty() && !sentence.empty()) text += " ";
    text += sentence;
  };
  if (timers_.Now() < newsUntil_) add(WaitingText::OutageOver(lastOutage_));
  add(TextOf(0));
  if (state_.LookingForRecording && text_.IsChosen(1)) add(TextOf(1));
  if (streams_[0].Located.value_or(0) > 0 && streams_[1].Located.value_or(0) > 0) {
    add(text_.SharedChannels({*streams_[0].Located, *streams_[1].Located}));
  }
  for (std::size_t stream = 0; stream < streams_.size(); ++stream) add(UnfitOf(stream));
  return text;
}

std::string WaitingLine::UnfitOf(std::size_t stream) const {
  // The views show the first stream alone.
  if (!text_.IsChosen(stream) || (stream == 1 && !state_.LookingForRecording)) return {};
  const Awaited& told = streams_[stream];
  std::string text = unfit_.Doubled(stream, told.OfLastSecond);
  // What was looked at in a run before is none of this one's.
  if (!told.Located || !watch_.Look(stream)) return text;
  const std::string unfit = unfit_.Of(stream, *watch_.Look(stream), watch_.Track(stream).Rate());
  if (!text.empty() && !unfit.empty()) text += " ";
  return text + unfit;
}

std::string WaitingLine::TextOf(std::size_t stream) const {
  const Awaited& awaited = streams_[stream];
  if (IsAwaited(stream)) return text_.Waiting(stream, state_.Counters - awaited.From);
  const bool comes = stream != 0 || anyShown_;
  return comes && awaited.Located == 0 ? text_.NotLocated(stream) : "";
}

bool WaitingLine::IsAwaited(std::size_t stream) const {
  const bool resting = stream == 0 && shown_ && !state_.CaptureRunning;
  return !resting && timers_.Now() - streams_[stream].Since >= Patience;
}

}  // namespace packetroutines
