#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "base/plug.h"
#include "base/trap.h"
#include "capture/acquisition_state.h"
#include "capture/modes.h"
#include "capture/run_control.h"
#include "config/settings.h"
#include "forms/run_buttons.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"
#include "platform/services/capture_object.h"
#include "platform/services/services.h"

namespace packetroutines {

/// The driver buffer of the live views and of a recording, in bytes of frames.
inline constexpr std::int32_t LiveBuffer = 262144;
inline constexpr std::int32_t RecordingBuffer = 33554432;

/// What a start and a stop of capture show and lock on the form.
struct CaptureControls {
  forms::SetupControls& Setup;
  forms::SharedControls& Shared;
  forms::RunButtons Buttons;
};

/// What the capture session hands the received frames to.
class PacketConsumer {
 public:
  virtual ~PacketConsumer() = default;
  /// One received frame, on the program's thread.
  virtual void aPacketX_OnPacket(const platform::CapturedFrame& pPacket) = 0;
};

/// Whom the capture session tells what becomes of a run.
class CaptureUser {
 public:
  virtual ~CaptureUser() = default;
  /// Capture rests: a burst or a run has ended, or one is about to begin.
  virtual void CaptureStopped() = 0;
  /// The capture filter was refused: the button of a report is free again.
  virtual void ReportEnded() = 0;
  /// A start did not begin, because the capture filter was refused; the user has not been told yet.
  virtual void CaptureRefused() = 0;
};

/// The program's one capture channel: lists the adapters, selects one, starts and stops reception
/// and sets the acquisition mode. A live view starts and stops it several times a second.
class CaptureSession {
 public:
  CaptureSession(platform::CaptureLayer& layer, const CaptureControls& controls,
                 config::Settings& settings, config::RunSettings& present, AcquisitionState& state,
                 RunControl& run, const platform::Services& services);

  platform::Plug<PacketConsumer> Packets;
  platform::Plug<CaptureUser> User;

  /// Creates the capture object and fills the adapter list; once, at start-up.
  void FillAdapterList();
  /// Puts a capture file into the list behind the others, for this run of the program, and gives
  /// its place. Fails as the capture layer does.
  std::int32_t AddFile(const std::string& path);
  /// The start of a run: measures the frame length anew, takes the adapter over and begins the
  /// first burst. The wish is for the frames that the run meets.
  void BeginRun(ModeName mode, const platform::FrameWish& wish = {});
  /// The first half of it, for a run that is begun step by step.
  void PrepareRun(std::int32_t buffSize, const platform::FrameWish& wish = {});
  /// The blocks of the run count from 0.
  void CountBlocksAnew();
  /// The end of a run. False where another one has begun in its pumps.
  bool EndRun(ModeName mode);

  /// Takes over the chosen adapter with a driver buffer of `buffSize` bytes and the capture filter.
  /// The wish holds for every start until the next setup.
  void SetupAdapter(std::int32_t buffSize, const platform::FrameWish& wish = {});
  /// Begins a burst; a name that is no mode's starts capture without a mode. A mode that is taken
  /// back in the pumps on the way begins nothing.
  void StartCapture(ModeName name);
  /// Ends a burst; legal when idle. A burst that begins in its pumps is newer than this stop and
  /// goes on: the result is False then, and what the stop was for is overtaken.
  bool StopCapture();
  /// The same for a run that keeps every frame: what has arrived by now is handed over first.
  void StopBehindArrived();

  /// Whether the adapter in use is there to deliver; for times without frames.
  platform::Presence AdapterPresence();
  /// Frames that the system has dropped since the program began; nothing where nobody counts them.
  std::optional<std::uint64_t> Dropped();

 private:
  void Begin();
  void SetMode(const Mode& mode);
  /// The mode that a start has set is off again; nothing is awaited for it any more.
  bool TakenBack(const Mode& mode);
  void ShowIndicators(bool visible);
  void GiveButtonsBack();
  std::string FilterExpression() const;
  std::int32_t ChosenAdapter() const;
  platform::CaptureObject& aPacketX();
  platform::Verdict OnAdapterListFailure(const platform::Failure& failure, int attempt);
  platform::Verdict OnSetupFailure(const platform::Failure& failure);
  platform::Verdict OnStartFailure(const platform::Failure& failure);
  static platform::Verdict OnStopFailure(const platform::Failure& failure);

  platform::CaptureLayer& layer_;
  CaptureControls controls_;
  config::Settings& settings_;
  config::RunSettings& present_;
  const RunFields& state_;
  StreamFields& streams_;
  RunControl& run_;
  platform::Services services_;
  /// Counts the starts of the capture object.
  std::uint32_t starts_ = 0;
  std::unique_ptr<platform::CaptureObject> aPacketX_;
  std::unique_ptr<platform::PacketCollection> oPacketColl_;
};

}  // namespace packetroutines
