#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "adapters/pcap_handle.h"
#include "platform/services/capture_object.h"

namespace adapters {

/// A frame of a capture file with the time that was noted for it.
struct RecordedFrame {
  platform::CapturedFrame Frame;
  std::chrono::nanoseconds Time{};
};

/// Reads a capture file from its beginning, frame by frame.
class CaptureFileReader {
 public:
  /// Opens the file; fails where it cannot be read or does not hold Ethernet frames.
  explicit CaptureFileReader(std::filesystem::path file);

  /// The next frame, valid until the next call; absent at the end and from a damaged place on.
  std::optional<RecordedFrame> Next();
  /// Begins anew; fails as the opening does. Returns false where the file has been written since it
  /// was opened, and so may be another one.
  bool Rewind();

  /// What is wrong at the place where reading ended; empty after a sound end.
  const std::string& Damage() const { return damage_; }
  std::uint64_t FramesRead() const { return framesRead_; }

 private:
  void Open();

  std::filesystem::path file_;
  std::filesystem::file_time_type written_;
  PcapHandle handle_;
  std::uint64_t framesRead_ = 0;
  std::string damage_;
};

/// Why the file cannot be played and what to do, in words that follow its name; empty for a file
/// that can be read and holds at least one frame of an Ethernet.
std::string WhyUnplayable(const std::filesystem::path& file);

}  // namespace adapters
