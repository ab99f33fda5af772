#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace platform {

/// How far a file is on the disk itself, by the numbers of the requests for it.
struct DiskState {
  /// The last request that went through: what was written before it outlives a power cut.
  std::uint64_t Synced = 0;
  /// The last one that the disk failed, and the number of its failure. What waited for it may be
  /// lost, also where a later request goes through.
  std::uint64_t Failed = 0;
  std::int32_t Failure = 0;
  /// The last one whose file could not be opened. Nothing is lost by that: a later request that
  /// goes through brings it along.
  std::uint64_t Unreached = 0;
};

/// Brings what was written to files onto the disk itself, beside the program: a slow disk takes
/// seconds for that, and nobody waits for them. Whoever asks looks later what became of it; a file
/// counts by its path.
class DiskSync {
 public:
  virtual ~DiskSync() = default;
  /// Asks for all that was written to a file until now, and for the name of a new one. Returns at
  /// once, with the number of the request; the numbers grow from 1.
  virtual std::uint64_t Sync(const std::string& path) = 0;
  /// What became of the requests for a file so far.
  virtual DiskState StateOf(const std::string& path) const = 0;
  /// Waits until no request is left, but no longer than the limit: for the end of the program. True
  /// where none is left.
  virtual bool Finish(std::chrono::milliseconds limit) = 0;
};

}  // namespace platform
