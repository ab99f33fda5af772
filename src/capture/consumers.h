#pragma once

#include <cstdint>
#include <string>

#include "base/plug.h"
#include "capture/packet_bytes.h"
#include "platform/services/capture_object.h"

namespace packetroutines {

/// What the packet event asks of the live views when a block is complete.
class BlockConsumers {
 public:
  virtual ~BlockConsumers() = default;
  /// `mode` is "Auto" for the first block of a run and "Manuell" for those behind it.
  virtual void PlotBlock(const char* mode) = 0;
  virtual void CalculateValues() = 0;
  virtual void ClearValues() = 0;
  virtual void UpdatePhases() = 0;
};

/// What the packet event asks of the recorder.
class RecordConsumer {
 public:
  virtual ~RecordConsumer() = default;
  /// The ring of a stream, 0 or 1, is full.
  virtual void WriteRecordBlock(std::int16_t stream) = 0;
};

/// What the watchdog asks of the session of a recording.
class SessionConsumer {
 public:
  virtual ~SessionConsumer() = default;
  /// No usable frame came behind RUN; the recording is over, and the user has not been told yet.
  virtual void NoData() = 0;
};

/// What the packet event asks of the report.
class ReportConsumer {
 public:
  virtual ~ReportConsumer() = default;
  /// Reads the frame into the report; the result is the frame's stream ID.
  virtual std::string ReportAnalyse(const PacketBytes& bytes) = 0;
  /// A report run was for this frame, which was read before.
  virtual void FrameReported(const platform::CapturedFrame& frame) = 0;
  /// A run has ended without a frame, and its button is free again.
  virtual void ReportEnded() = 0;
};

/// What the acquisition asks of the stream finder.
class FinderConsumer {
 public:
  virtual ~FinderConsumer() = default;
  virtual void AddStreamToList(const std::string& id) = 0;
  /// Closes the stream finder.
  virtual void UnloadIDlook() = 0;
  /// Capture rests: a burst or a run has ended, or one is about to begin.
  virtual void CaptureStopped() = 0;
  /// A start did not begin, because the capture filter was refused; the user has not been told yet.
  virtual void CaptureRefused() = 0;
};

/// Whom the waiting line tells of the adapter in use.
class AdapterConsumer {
 public:
  virtual ~AdapterConsumer() = default;
  /// It went away or was switched off, or is there again.
  virtual void AdapterChanged(platform::Presence presence) = 0;
};

/// What the acquisition asks of the shell.
class TabConsumer {
 public:
  virtual ~TabConsumer() = default;
  virtual void TabChange() = 0;
};

/// Where the upper folders plug themselves into the acquisition.
struct Plugs {
  platform::Plug<BlockConsumers> Views;
  platform::Plug<RecordConsumer> Recorder;
  platform::Plug<SessionConsumer> Session;
  platform::Plug<ReportConsumer> Report;
  platform::Plug<FinderConsumer> Finder;
  platform::Plug<TabConsumer> Tabs;
};

}  // namespace packetroutines
