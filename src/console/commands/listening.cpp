#include "console/commands/listening.h"

#include "base/failure.h"

namespace console {

namespace {

/// How long a listener rests where nothing has come.
constexpr std::chrono::milliseconds Rest{10};
/// Frames between two looks at the time and the user.
constexpr int FramesATurn = 256;

}  // namespace

void Listening::Declare(CLI::App& command, const std::string& secondsHelp) {
  command.add_option("ADAPTER", adapter_, "what 'vornik-cli adapters' lists, or a capture file")
      ->required();
  command.add_option("--seconds", Seconds, secondsHelp)->check(CLI::PositiveNumber);
  command.add_flag("--fast", fast_, "read a capture file as fast as it can be read");
}

void Listening::Begin(const Machine& machine) {
  machine_ = &machine;
  tap_ = machine.Taps.Open(adapter_,
                           fast_ ? platform::TapPace::AsFastAsRead : platform::TapPace::AsRecorded);
}

bool Listening::TimeIsOver() {
  if (!Seconds) return false;
  const Time now = tap_->Now();
  // A capture file has no present before its first frame.
  if (!begun_ && now.count() > 0) begun_ = now;
  return begun_ && now - *begun_ >= std::chrono::duration<double>(*Seconds);
}

void Listening::Go(const std::function<void(const platform::CapturedFrame&)>& take,
                   const std::function<bool()>& more) {
  while (!TimeIsOver() && !machine_->EndAsked() && more()) {
    bool waits = true;
    for (int i = 0; i < FramesATurn; ++i) {
      const std::optional<platform::CapturedFrame> frame = tap_->Next();
      waits = frame.has_value();
      if (!waits) break;
      if (TimeIsOver()) return;
      take(*frame);
    }
    if (waits) continue;
    if (tap_->Ended()) return;
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
