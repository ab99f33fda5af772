#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/services/capture_object.h"

namespace platform {

/// Every sampled values frame of one place in the order of its coming, for who looks at a bus as a
/// whole: nothing is put in front of anything, and nothing is left out.
class BusTap {
 public:
  BusTap() = default;
  BusTap(const BusTap&) = delete;
  BusTap& operator=(const BusTap&) = delete;
  virtual ~BusTap() = default;

  /// The next frame that has come, valid until the next call; nothing where none has.
  virtual std::optional<CapturedFrame> Next() = 0;
  /// What comes will be over by itself, as a capture file is.
  virtual bool Ends() const { return false; }
  /// It is over.
  virtual bool Ended() const = 0;
  /// The present of what is tapped, by the clock of the frames' times of arrival.
  virtual std::chrono::microseconds Now() const = 0;
  virtual Presence Present() { return Presence::There; }
  /// Frames that were lost for want of a reader; nothing where they are not counted.
  virtual std::optional<std::uint64_t> Dropped() { return std::nullopt; }
  /// What kept the end from being the true one, such as a damaged file; else empty.
  virtual std::string Trouble() const { return {}; }
};

/// A place that frames may come from.
struct CapturePlace {
  /// What to call it on a command line.
  std::string Name;
  std::string Title;
  bool Usable = false;
};

/// How the frames of a capture file come: at the pace of their times, or as fast as they are read.
enum class TapPace { AsRecorded, AsFastAsRead };

/// All places that frames may come from.
class BusTaps {
 public:
  virtual ~BusTaps() = default;
  virtual std::vector<CapturePlace> Places() = 0;
  /// What a user can do about places that cannot be used; empty when there is nothing to tell.
  virtual std::string Advice() const = 0;
  /// Begins to listen. A failure tells why that cannot be.
  virtual std::unique_ptr<BusTap> Open(const std::string& name, TapPace pace) = 0;
};

}  // namespace platform
