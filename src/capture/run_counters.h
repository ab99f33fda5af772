#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace packetroutines {

/// What came in of one stream.
struct StreamCounters {
  /// Frames that held its text, of those that were searched for it.
  std::uint64_t HeldId = 0;
  /// Those of them whose samples were not found by the scan of their burst.
  std::uint64_t NotLocated = 0;
  /// Frames that held its text and did no more than set the frame length.
  std::uint64_t SetLength = 0;
  /// Frames that held its text and were dropped for being longer than expected. Only a few of the
  /// dropped ones are looked at.
  std::uint64_t TooLong = 0;
};

/// What came in since the program began, for the line that tells a user what a run waits for. The
/// packet event counts up and never looks at a count.
struct RunCounters {
  /// All frames, those that set the frame length included.
  std::uint64_t Frames = 0;
  /// Frames that were dropped for being longer than expected.
  std::uint64_t TooLong = 0;
  /// Rows of the first stream whose values could not be read.
  std::uint64_t Unread = 0;
  /// Complete blocks of the first stream that were silent.
  std::uint64_t SilentBlocks = 0;
  std::array<StreamCounters, 2> Streams{};
};

inline StreamCounters operator-(const StreamCounters& now, const StreamCounters& then) {
  return {now.HeldId - then.HeldId, now.NotLocated - then.NotLocated,
          now.SetLength - then.SetLength, now.TooLong - then.TooLong};
}

/// What came in between.
inline RunCounters operator-(const RunCounters& now, const RunCounters& then) {
  RunCounters between{now.Frames - then.Frames,
                      now.TooLong - then.TooLong,
                      now.Unread - then.Unread,
                      now.SilentBlocks - then.SilentBlocks,
                      {}};
  for (std::size_t stream = 0; stream < between.Streams.size(); ++stream) {
    between.Streams[stream] = now.Streams[stream] - then.Streams[stream];
  }
  return between;
}

}  // namespace packetroutines
