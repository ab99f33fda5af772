#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "capture/acquisition_state.h"
#include "config/settings.h"
#include "forms/main_form.h"
#include "platform/capture_object.h"
#include "platform/dialogs.h"
#include "platform/event_queue.h"
#include "platform/program.h"
#include "platform/trap.h"

namespace packetroutines {

/// The driver buffer of the live views and of a recording, in bytes of frames.
inline constexpr std::int32_t LiveBuffer = 262144;
inline constexpr std::int32_t RecordingBuffer = 33554432;

/// The program's one capture channel: lists the adapters, selects one, starts and stops reception
/// and sets the acquisition mode. A live view starts and stops it several times a second.
class CaptureSession {
 public:
  CaptureSession(platform::CaptureLayer& layer, forms::Main& main, config::Settings& settings,
                 AcquisitionState& state, platform::EventQueue& events, platform::Dialogs& dialogs,
                 platform::Program& program);

  /// Creates the capture object and fills the adapter list; once, at start-up.
  void FillAdapterList();
  /// Takes over the chosen adapter with a driver buffer of `buffSize` bytes and the capture filter.
  void SetupAdapter(std::int32_t buffSize);
  /// Begins a burst. `mode` is "Report", "LookingForScope", "LookingForValues", "LookingForPhases",
  /// "LookingForRecording" or "LookingForID"; any other text starts capture without a mode.
  void StartCapture(std::string_view mode);
  /// Ends a burst; legal when idle. What starts capture anew in its pumps is ended with it.
  void StopCapture();

  /// One received frame, on the program's thread.
  std::function<void(const platform::CapturedFrame&)> aPacketX_OnPacket;
  /// Capture rests: a burst or a run has ended, or one is about to begin.
  platform::Event<> Stopped;

 private:
  void Begin();
  void EndWhatBegan(std::uint32_t starts);
  void SetMode(std::string_view mode);
  void ShowIndicators(bool visible);
  void GiveButtonsBack();
  std::string FilterExpression() const;
  platform::CaptureObject& aPacketX();
  platform::Verdict OnAdapterListFailure(const platform::Failure& failure, int attempt);
  platform::Verdict OnSetupFailure(const platform::Failure& failure);
  platform::Verdict OnStartFailure(const platform::Failure& failure);

  platform::CaptureLayer& layer_;
  forms::Main& main_;
  config::Settings& settings_;
  AcquisitionState& state_;
  platform::EventQueue& events_;
  platform::Dialogs& dialogs_;
  platform::Program& program_;
  /// Counts the starts of the capture object.
  std::uint32_t starts_ = 0;
  std::unique_ptr<platform::CaptureObject> aPacketX_;
  std::unique_ptr<platform::PacketCollection> oPacketColl_;
};

}  // namespace packetroutines
