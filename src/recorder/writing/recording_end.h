#pragma once

namespace packetroutines {

/// What ends a recording from within the writing of a ring.
class RecordingEnd {
 public:
  virtual ~RecordingEnd() = default;
  /// The sheet of the first stream is full.
  virtual void StopAtRowLimit() = 0;
  /// The sheet of the second stream is full.
  virtual void StopAtRowLimit2() = 0;
  /// The disk takes no more.
  virtual void StopOnFullDisk() = 0;
};

}  // namespace packetroutines
