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

  std::string adapter_;
  bool fast_ = false;
  const Machine* machine_ = nullptr;
  std::unique_ptr<platform::BusTap> tap_;
  std::optional<Time> begun_;
};

}  // namespace console
