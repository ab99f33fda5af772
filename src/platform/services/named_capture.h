#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/clock.h"
#include "platform/services/bus_tap.h"
#include "platform/services/capture_object.h"

namespace platform {

/// A capture library with one adapter alone, for a program that is told by name where its frames
/// come from.
class NamedCapture {
 public:
  NamedCapture() = default;
  NamedCapture(const NamedCapture&) = delete;
  NamedCapture& operator=(const NamedCapture&) = delete;
  virtual ~NamedCapture() = default;

  virtual CaptureLayer& Layer() = 0;
  virtual FrameDelivery& Frames() = 0;
  /// The time that the frames come by, and that the program has to go by.
  virtual const Clock& Time() const = 0;
  /// Lets so much time pass at once, where it is not the computer's; else False, and whoever waits
  /// has to wait.
  virtual bool Pass(std::chrono::nanoseconds time) = 0;
  /// What comes will be over by itself, as a capture file is.
  virtual bool Ends() const = 0;
  /// It is over.
  virtual bool Ended() const = 0;
  /// What kept the end from being the true one, such as a damaged file; else empty.
  virtual std::string Trouble() const = 0;
};

/// Where frames may come from, each as a capture library of its own.
class NamedCaptures {
 public:
  virtual ~NamedCaptures() = default;
  /// A failure tells why nothing can be captured there.
  virtual std::unique_ptr<NamedCapture> OpenCapture(const std::string& name, TapPace pace) = 0;
};

}  // namespace platform
