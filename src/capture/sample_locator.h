#pragma once

#include <cstdint>

#include "base/program.h"
#include "capture/acquisition_state.h"
#include "capture/packet_bytes.h"
#include "capture/retry_box.h"

namespace packetroutines {

/// Finds where a stream's frames hold smpCnt and seqData by a scan for their tag and length bytes,
/// once a burst. The offsets are then applied to every frame of the stream without a look at it.
///
/// The samples must not be scanned: any of their bytes may look like a tag. So the scan of a frame
/// that is shorter than expected, as beside a longer stream, ends in front of its own samples, and
/// goes on to the length that is expected only where it has met no seqData until there.
class SampleLocator {
 public:
  SampleLocator(StreamFields& streams, RetryBox& retry, platform::Program& program)
      : streams_(streams), retry_(retry), program_(program) {}

  /// `packetLength` is the expected length of a frame in bytes, `stream` 0 or 1.
  void FindDataOffsets(const PacketBytes& bytes, std::int16_t packetLength, std::size_t stream);
  /// The quality words are read nowhere.
  void FindQualitySettings(const PacketBytes& bytes, std::size_t stream);
  /// As at the first start: nothing was found of any stream.
  void Forget();

 private:
  /// What a scan has met last; 0 where it has met none.
  struct Found {
    std::int16_t SampleCount = 0;
    std::int16_t Values = 0;
    std::int16_t Channels = 0;
  };

  static Found Scan(const PacketBytes& bytes, std::int32_t frameLength);
  void Locate(const PacketBytes& bytes, std::int32_t packetLength, std::size_t stream);

  StreamFields& streams_;
  RetryBox& retry_;
  platform::Program& program_;
};

}  // namespace packetroutines
