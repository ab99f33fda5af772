#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "adapters/files/capture_file_reader.h"
#include "adapters/files/file_pace.h"
#include "platform/clock.h"
#include "platform/services/bus_tap.h"

namespace adapters {

/// A capture file from its beginning to its end, once. Its frames bear the times that were noted
/// for them, and they are the present of this tap, however fast it is read.
class FileTap : public platform::BusTap {
 public:
  /// Fails where the file cannot be read.
  FileTap(const std::filesystem::path& file, const platform::Clock& clock, platform::TapPace pace);

  std::optional<platform::CapturedFrame> Next() override;
  bool Ends() const override { return true; }
  bool Ended() const override { return !waiting_; }
  std::chrono::microseconds Now() const override { return now_; }
  std::string Trouble() const override;

 private:
  void Fetch();

  std::filesystem::path file_;
  CaptureFileReader reader_;
  const platform::Clock& clock_;
  const bool fast_;
  FilePace pace_;
  /// The next frame, and when it is due.
  std::optional<RecordedFrame> waiting_;
  std::chrono::nanoseconds due_;
  std::chrono::microseconds now_{0};
  /// The one that was handed over last is still looked at.
  bool handed_ = false;
};

}  // namespace adapters
