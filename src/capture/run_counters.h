#pragma once

#include <cstdint>

namespace packetroutines {

/// What came in since a run began or last showed a block, for the line that tells a user what the
/// run waits for. The packet event counts up and never looks at a count.
struct RunCounters {
  /// All frames, the one that sets the frame length included.
  std::uint64_t Frames = 0;
  /// Frames that held the text of the first stream.
  std::uint64_t HeldId = 0;
  /// Frames that were dropped for being longer than expected.
  std::uint64_t TooLong = 0;
  /// Frames of the first stream whose samples were not found by the scan of their burst.
  std::uint64_t NotLocated = 0;
  /// Complete blocks of the first stream that were silent.
  std::uint64_t SilentBlocks = 0;
};

}  // namespace packetroutines
