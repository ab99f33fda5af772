#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/number_text.h"
#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "capture/run_counters.h"
#include "capture/stream_watch.h"
#include "capture/unfit_text.h"
#include "capture/waiting_text.h"
#include "config/settings.h"
#include "forms/run_buttons.h"
#include "forms/shared_controls.h"
#include "platform/controls/quiet_line.h"
#include "platform/loop/timer_queue.h"
#include "platform/services/capture_object.h"

namespace packetroutines {

/// Tells beside the run button what a run waits for: the stream of a view that has shown no block
/// for a while, either stream of a recording, an interface that went away. It also tells where what
/// is shown or stored is no measurement. It only looks on and steers nothing.
class WaitingLine {
 public:
  WaitingLine(AcquisitionState& state, const config::Settings& settings,
              const config::RunSettings& present, forms::SharedControls& shared,
              const forms::RunButtons& buttons, CaptureSession& capture, StreamWatch& watch,
              platform::TimerQueue& timers, const platform::NumberText& numbers);

  platform::Plug<AdapterConsumer> Adapter;

  /// Capture rests: a run begins or has ended, or a burst of it.
  void CaptureStopped();
  /// A block was brought to the user.
  void BlockShown();

 private:
  /// A stream that a run may wait for.
  struct Awaited {
    /// The text that marks its frames.
    std::string Content;
    std::chrono::nanoseconds Since{0};
    /// The counters at that time.
    RunCounters From;
    /// The channels that the scan of its latest burst found; absent before there was one.
    std::optional<std::int16_t> Located;
    /// What the counters told at the last looks, a second back.
    std::array<sv::TrackTotals, 2> Looks;
    sv::TrackTotals OfLastSecond;
  };

  void FollowRun();
  void Timer_Timer();
  /// The line of the view that runs, or null.
  platform::QuietLine* LineOfRun() const;
  void BeginAnew();
  void WaitAnew(Awaited& stream);
  bool StationsChanged() const;
  void LookAtDoubled();
  std::string UnfitOf(std::size_t stream) const;
  void LookAtSecondStream();
  void LookAtLocations();
  void LookAtAdapter();
  void Tell();
  void Say(const std::string& text);
  void Silence();
  std::string Text() const;
  std::string TextOf(std::size_t stream) const;
  bool IsAwaited(std::size_t stream) const;

  const AcquisitionState& state_;
  StreamFields& streamFields_;
  const config::Settings& settings_;
  forms::SharedControls& shared_;
  forms::RunButtons buttons_;
  CaptureSession& capture_;
  StreamWatch& watch_;
  platform::TimerQueue& timers_;
  WaitingText text_;
  UnfitText unfit_;
  platform::Timer timer_;

  /// Null while nothing runs.
  platform::QuietLine* line_ = nullptr;
  /// What this class has written to the line.
  std::string said_;
  std::array<Awaited, 2> streams_;
  /// A block was shown, and no burst has begun since.
  bool shown_ = false;
  /// A block was shown in this run.
  bool anyShown_ = false;
  std::uint64_t framesAtLook_ = 0;
  /// What keeps the adapter from delivering, and what kept it before.
  platform::Presence outage_ = platform::Presence::There;
  platform::Presence lastOutage_ = platform::Presence::There;
  /// Until when the end of an outage is news.
  std::chrono::nanoseconds newsUntil_{0};
};

}  // namespace packetroutines
