#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "console/comtrade/sample_sink.h"

namespace console {

/// Puts the samples of a stream where their counter says that they belong, and hands them on:
/// lost ones are missing there, doubled ones stand once, late ones where they were missed.
///
/// The counter goes round once a second, so it is blind to whole seconds. One that lies less than
/// 64 samples back is of a sample that came twice or late; any other is taken to be ahead. So 64
/// samples wait in memory, and no more.
class SampleOrder {
 public:
  static constexpr std::int64_t Waiting = 64;

  /// `round` is the number of samples behind which the counter begins anew.
  SampleOrder(std::int32_t round, SampleSink& sink) : round_(round), sink_(sink) {}

  /// A sample whose counter is less than the round: a stored number for each channel.
  void Take(std::int64_t counter, std::span<const double> stored);
  /// The places of the latest sample and of that which is handed on next, from 0.
  std::int64_t Latest() const { return latest_; }
  std::int64_t Next() const { return next_; }
  /// Hands on those that wait.
  void Finish();

  /// What was met, in samples. Doubled ones, and those that were sent before the first, are left
  /// out.
  std::int64_t Missing() const { return missing_; }
  std::int64_t Doubled() const { return doubled_; }
  std::int64_t Late() const { return late_; }
  std::int64_t BeforeFirst() const { return beforeFirst_; }

 private:
  void TakeBack(std::int64_t position, std::span<const double> stored);
  void Keep(std::int64_t position, std::span<const double> stored);
  void HandOnBefore(std::int64_t position);
  static std::size_t SlotOf(std::int64_t position) {
    return static_cast<std::size_t>(position % Waiting);
  }

  std::int32_t round_;
  SampleSink& sink_;
  /// The counter and the place of the latest sample; before the first one there is none.
  std::int64_t counter_ = 0;
  std::int64_t latest_ = -1;
  /// The first place that was not handed on.
  std::int64_t next_ = 0;
  std::vector<double> rows_;
  std::array<bool, Waiting> here_{};
  std::int64_t missing_ = 0;
  std::int64_t doubled_ = 0;
  std::int64_t late_ = 0;
  std::int64_t beforeFirst_ = 0;
};

}  // namespace console
