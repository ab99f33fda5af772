#pragma once

#include <cstdint>
#include <string>

#include "capture/packet_bytes.h"
#include "platform/services/capture_object.h"

namespace packetroutines {

/// What the capture session hands the received frames to.
class PacketConsumer {
 public:
  virtual ~PacketConsumer() = default;
  /// One received frame, on the program's thread.
  virtual void aPacketX_OnPacket(const platform::CapturedFrame& pPacket) = 0;
};

/// What the packet event asks of the live views when a block is complete.
class BlockConsumers {
 public:
  virtual ~BlockConsumers() = default;
  /// `mode` is "Auto" for the first block of a run and "Manuell" for those behind it.
  virtual void PlotBlock(const char* mode) = 0;
  virtual void CalculateValues() = 0;
  virtual void ClearValues() = 0;
  virtual void UpdatePhases() = 0;
  /// A block has reached the user: a view shows it, or the recording went on by it.
  virtual void BlockShown() = 0;
};

/// What the packet event asks of the recorder.
class RecordConsumer {
 public:
  virtual ~RecordConsumer() = default;
  /// The ring of a stream, 0 or 1, is full.
  virtual void WriteRecordBlock(std::int16_t stream) = 0;
};

/// What the packet event asks of the report.
class ReportConsumer {
 public:
  virtual ~ReportConsumer() = default;
  /// Reads the frame into the report; the result is the frame's stream ID.
  virtual std::string ReportAnalyse(const PacketBytes& bytes) = 0;
};

/// What the packet event and the watchdog ask of the stream finder.
class FinderConsumer {
 public:
  virtual ~FinderConsumer() = default;
  virtual void AddStreamToList(const std::string& id) = 0;
  /// Closes the stream finder.
  virtual void UnloadIDlook() = 0;
};

/// What the watchdog asks of the shell.
class TabConsumer {
 public:
  virtual ~TabConsumer() = default;
  virtual void TabChange() = 0;
};

}  // namespace packetroutines
