#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "adapters/frame_source.h"
#include "adapters/simulated/sv_frame_writer.h"
#include "adapters/wire_filter.h"
#include "platform/clock.h"
#include "platform/stream_format.h"

namespace adapters {

/// A process bus without a network: two merging units with three-phase sets of 50 Hz.
/// It keeps real time by the clock; a reader that is late gets everything that is due.
class SimulatedBus : public FrameSource {
 public:
  explicit SimulatedBus(const platform::Clock& clock);

  void Prepare(const SourceSettings& settings) override;
  void Start() override;
  void Stop() override { running_ = false; }
  void TakeNoMore() override { bound_ = clock_.Now(); }
  void Release() override { running_ = false; }
  std::optional<platform::CapturedFrame> Next() override;
  bool LookedAtAll() const override { return lookedAtAll_; }

 private:
  static constexpr std::size_t StreamCount = 2;

  struct Stream {
    SvFrameWriter Writer;
    std::array<SvSample, platform::SamplesAPeriod> Period{};
  };

  /// Writes the frame at the present place and moves on to the next place.
  Stream& WriteNext();

  const platform::Clock& clock_;
  /// What the computer's clock would have shown when the monotonic one stood at 0.
  std::chrono::microseconds wallAtZero_{};
  std::array<Stream, StreamCount> streams_;
  std::string filterText_;
  std::optional<WireFilter> filter_;
  bool running_ = false;
  bool lookedAtAll_ = true;
  /// Frames that are due later are not handed over.
  std::chrono::nanoseconds bound_ = std::chrono::nanoseconds::max();
  /// Samples since the clock's origin, so that the sample count runs on while nobody listens.
  std::int64_t sample_ = 0;
  std::size_t stream_ = 0;
};

}  // namespace adapters
