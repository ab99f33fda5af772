#include "console/commands/listening.h"

#include "base/failure.h"
#include "console/commands/number_within.h"

namespace console {

namespace {

/// How long a listener rests where nothing has come.
constexpr std::chrono::milliseconds Rest{10};
/// A frame is handed over so much behind its coming at most.
constexpr std::chrono::milliseconds Late{100};
/// Two frames that are further apart let ask whether the clock was set; a step of less than the
/// other is none.
constexpr std::chrono::milliseconds SetApart{400};
constexpr std::chrono::milliseconds LeastStep{100};
/// So often an adapter from which nothing comes is looked for.
constexpr std::chrono::seconds LookEvery{1};
/// Frames between two looks at the time and the user.
constexpr int FramesATurn = 256;

}  // namespace

void Listening::Declare(CLI::App& command, const std::string& secondsHelp) {
  command.add_option("ADAPTER", adapter_, "what 'vornik-cli adapters' lists, or a capture file")
      ->required();
  command.add_option("--seconds", Seconds, secondsHelp)->check(SomeSeconds());
  command.add_flag("--fast", fast_, "read a capture file as fast as it can be read");
}

void Listening::Begin(const Machine& machine) {
  machine_ = &machine;
  tap_ = machine.Taps.Open(adapter_,
                           fast_ ? platform::TapPace::AsFastAsRead : platform::TapPace::AsRecorded);
}

bool Listening::IsBehindEnd(Time moment) {
  if (!Seconds) return false;
  // A capture file has no present before its first frame.
  if (!begun_) begun_ = moment;
  return moment - *begun_ >= std::chrono::duration<double>(*Seconds);
}

void Listening::AskClock(Time leastStep) {
  const Time ahead =
      machine_->Clock.WallTime() - std::chrono::duration_cast<Time>(machine_->Clock.Now());
  const Time step = ahead - ahead_;
  // What is less is a clock that goes a little faster or slower, and is followed from here on.
  if (std::chrono::abs(step) < leastStep) {
    ahead_ = ahead;
    return;
  }
  ahead_ = ahead;
  if (begun_) *begun_ += step;
  if (last_) *last_ += step;
  ClockSet(step);
}

void Listening::FollowClock(Time arrived) {
  if (last_ && std::chrono::abs(arrived - *last_) > SetApart) AskClock(LeastStep);
  last_ = arrived;
}

void Listening::LookForAdapter() {
  if (machine_->Clock.Now() - quietSince_ < LookEvery) return;
  quietSince_ = machine_->Clock.Now();
  const platform::Presence now = tap_->Present();
  if (now == presence_) return;
  presence_ = now;
  const char* const words = now == platform::Presence::Gone          ? " is gone."
                            : now == platform::Presence::SwitchedOff ? " is switched off."
                                                                     : " is there again.";
  machine_->Notes << "vornik-cli: " << adapter_ << words << std::endl;
}

void Listening::Go(const std::function<void(const platform::CapturedFrame&)>& take,
                   const std::function<bool()>& more) {
  const bool live = !tap_->Ends();
  if (live) IsBehindEnd(tap_->Now());
  ahead_ = machine_->Clock.WallTime() - std::chrono::duration_cast<Time>(machine_->Clock.Now());
  quietSince_ = machine_->Clock.Now();
  while (!machine_->EndAsked() && more()) {
    std::optional<platform::CapturedFrame> frame;
    for (int i = 0; i < FramesATurn; ++i) {
      frame = tap_->Next();
      if (!frame) break;
      if (live) FollowClock(frame->Arrived);
      // Who is late still hands over all that came in time.
      if (IsBehindEnd(frame->Arrived)) return;
      take(*frame);
    }
    if (frame) {
      quietSince_ = machine_->Clock.Now();
      continue;
    }
    if (tap_->Ended()) return;
    if (live) {
      AskClock(SetApart);
      Rests();
      if (IsBehindEnd(tap_->Now() - Late)) return;
      LookForAdapter();
    }
    machine_->Sleep(Rest);
  }
}

void Listening::TellTrouble() const {
  if (const std::string trouble = tap_->Trouble(); !trouble.empty()) {
    machine_->Notes << "vornik-cli: " << trouble << std::endl;
  }
  const std::uint64_t dropped = tap_->Dropped().value_or(0);
  if (dropped > 0) {
    machine_->Notes << "vornik-cli: the system has dropped " << dropped
                    << (dropped == 1 ? " frame" : " frames") << ", which count as lost."
                    << std::endl;
  }
}

}  // namespace console
