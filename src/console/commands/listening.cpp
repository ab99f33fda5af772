#include "console/commands/listening.h"

#include "base/failure.h"
#include "console/commands/number_within.h"

namespace console {

namespace {

/// How long a listener rests where nothing has come.
constexpr std::chrono::milliseconds Rest{10};
/// A frame is handed over so much behind its coming at most.
constexpr std::chrono::milliseconds Late{100};
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

void Listening::Go(const std::function<void(const platform::CapturedFrame&)>& take,
                   const std::function<bool()>& more) {
  if (!tap_->Ends()) IsBehindEnd(tap_->Now());
  while (!machine_->EndAsked() && more()) {
    std::optional<platform::CapturedFrame> frame;
    for (int i = 0; i < FramesATurn; ++i) {
      frame = tap_->Next();
      if (!frame) break;
      // Who is late still hands over all that came in time.
      if (IsBehindEnd(frame->Arrived)) return;
      take(*frame);
    }
    if (frame) continue;
    if (tap_->Ended() || (!tap_->Ends() && IsBehindEnd(tap_->Now() - Late))) return;
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
