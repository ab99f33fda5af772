#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/services/capture_object.h"

namespace adapters {

/// What a source is asked for before it starts.
struct SourceSettings {
  /// Bytes of frames that may wait for a reader that is late.
  std::int32_t BufferBytes = 262144;
  bool Promiscuous = false;
  /// Filter expression in the syntax of libpcap.
  std::string Filter;
  /// Frames may come in heaps, a few times a second, which costs a busy bus a fraction of the work;
  /// their times of arrival are the same.
  bool InHeaps = false;
};

/// The implementation behind one adapter: it knows where frames come from and when each one is due.
/// What cannot be opened fails in `Prepare`, a refused filter in `Start`, and nothing else fails: a
/// source that is not open or that breaks while it runs just has no frames and tells why at the
/// next `Prepare`.
class FrameSource {
 public:
  FrameSource() = default;
  FrameSource(const FrameSource&) = delete;
  FrameSource& operator=(const FrameSource&) = delete;
  virtual ~FrameSource() = default;

  /// Takes the settings over and opens what has to be open; ends a delivery that runs.
  virtual void Prepare(const SourceSettings& settings) = 0;
  /// Begins with the present: frames of the stopped time are not delivered. Fails only for a
  /// refused filter; where nothing is open it runs and has no frames, because the user has been
  /// told in `Prepare` and the program is to go on.
  virtual void Start() = 0;
  virtual void Stop() = 0;
  /// Only frames that have arrived before this moment are handed over from now on, until the next
  /// start; legal when stopped.
  virtual void TakeNoMore() = 0;
  /// Gives back what `Prepare` opened; called when another adapter is chosen.
  virtual void Release() = 0;
  /// What the system tells of the place where the frames come from.
  virtual platform::Presence Presence() { return platform::Presence::There; }
  /// Frames that the system has dropped for want of a reader since the program began; nothing where
  /// it does not count them.
  virtual std::optional<std::uint64_t> Dropped() { return std::nullopt; }
  /// The next selected frame that is due now; nothing also where it has looked at as many as one
  /// call may. Its bytes are valid until the next call of any operation.
  virtual std::optional<platform::CapturedFrame> Next() = 0;
  /// False where the last call of `Next` gave nothing because it had looked at so many: the next
  /// call goes on from there.
  virtual bool LookedAtAll() const { return true; }

 protected:
  /// Frames that one call of `Next` looks at at most, so that a backlog of frames that the filter
  /// refuses does not hold up the program.
  static constexpr int MostLookedAt = 4096;
};

}  // namespace adapters
