#pragma once

#include <CLI/CLI.hpp>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "console/machine.h"
#include "platform/services/bus_tap.h"

namespace console {

/// Where a command listens, and for how long: the options that all of them share.
class Listening {
 public:
  using Time = std::chrono::microseconds;

  Listening() = default;
  /// For a command with options of its own.
  Listening(std::string adapter, platform::TapPace pace, std::optional<double> seconds)
      : Seconds(seconds),
        adapter_(std::move(adapter)),
        fast_(pace == platform::TapPace::AsFastAsRead) {}

  void Declare(CLI::App& command, const std::string& secondsHelp);

  /// Begins; fails where nothing can be heard.
  void Begin(const Machine& machine);
  /// Hands over what comes until the time is over, a capture file ends, the user ends the command,
  /// or `more` says no, which is asked between two frames, at least a hundred times a second.
  void Go(
      const std::function<void(const platform::CapturedFrame&)>& take,
      const std::function<bool()>& more = [] { return true; });

  /// The computer's clock was set by so much between the last frame and the next one.
  std::function<void(Time)> ClockSet = [](Time) {};
  /// All that came was handed over, and nothing waits.
  std::function<void()> Rests = [] {};
  /// Given by the user.
  std::optional<double> Seconds;
  /// What lasts as long as a capture file or the user's patience.
  platform::BusTap& Tap() { return *tap_; }
  const std::string& Name() const { return adapter_; }
  /// Tells what kept the end from being the true one, and what was dropped.
  void TellTrouble() const;

 private:
  /// Where there is no end, nothing is behind it. The first moment that is asked for is the begin.
  bool IsBehindEnd(Time moment);
  /// Looks whether a frame that bears another time than the one before lets expect does so because
  /// the clock was set.
  void FollowClock(Time arrived);
  void AskClock(Time leastStep);
  /// Tells where an interface went to, while nothing comes.
  void LookForAdapter();

  std::string adapter_;
  bool fast_ = false;
  const Machine* machine_ = nullptr;
  std::unique_ptr<platform::BusTap> tap_;
  std::optional<Time> begun_;
  /// When the latest frame came.
  std::optional<Time> last_;
  /// What the computer's clock shows before what the monotonic one does, when it was asked last.
  Time ahead_{0};
  /// Since when nothing has come, or when the adapter was looked for last.
  std::chrono::nanoseconds quietSince_{0};
  platform::Presence presence_ = platform::Presence::There;
};

}  // namespace console
