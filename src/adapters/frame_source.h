#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/capture_object.h"

namespace adapters {

/// What a source is asked for before it starts.
struct SourceSettings {
  /// Bytes of frames that may wait for a reader that is late.
  std::int32_t BufferBytes = 262144;
  bool Promiscuous = false;
  /// Filter expression in the syntax of libpcap.
  std::string Filter;
};

/// The implementation behind one adapter: it knows where frames come from and when each one is due.
/// Failures come out of `Prepare` and `Start` only; a source that breaks while it runs just has no
/// more frames and tells why at the next `Prepare`.
class FrameSource {
 public:
  FrameSource() = default;
  FrameSource(const FrameSource&) = delete;
  FrameSource& operator=(const FrameSource&) = delete;
  virtual ~FrameSource() = default;

  /// Takes the settings over and opens what has to be open; ends a delivery that runs.
  virtual void Prepare(const SourceSettings& settings) = 0;
  /// Begins with the present: frames of the stopped time are not delivered.
  virtual void Start() = 0;
  virtual void Stop() = 0;
  /// Gives back what `Prepare` opened; called when another adapter is chosen.
  virtual void Release() = 0;
  /// The next selected frame that is due now. Its bytes are valid until the next call of any
  /// operation.
  virtual std::optional<platform::CapturedFrame> Next() = 0;
};

}  // namespace adapters
