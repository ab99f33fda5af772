#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "adapters/capture_file.h"
#include "support/scene.h"

namespace console {

/// Frames of a bus with their times, as a capture file holds them and as a test can hand them over.
class BusFile {
 public:
  /// When the first frame came: the moment of the played platform's clock and calendar.
  static constexpr std::uint32_t Began = 1'709'993'107;

  /// So many frames of each stream at 4000 a second, with waves and a little of their own in each.
  BusFile& Add(int frames, const std::vector<std::string>& ids = {"MU01"}) {
    for (int i = 0; i < frames; ++i, ++sent_) {
      for (const std::string& id : ids) {
        frames_.push_back(support::SineFrame(sent_, 400 + sent_ % 7, 63.5, id));
        times_.push_back(sent_ * 250);
      }
    }
    return *this;
  }
  /// So many are sent and do not come.
  BusFile& Lose(int frames) {
    sent_ += frames;
    return *this;
  }
  void Save(const std::string& path) const {
    adapter_tests::PcapFile file;
    for (std::size_t i = 0; i < frames_.size(); ++i) {
      const auto time = static_cast<std::uint32_t>(times_[i]);
      file.Add(Began + time / 1'000'000, time % 1'000'000, frames_[i]);
    }
    file.Save(path);
  }
  const std::vector<support::FrameBytes>& Frames() const { return frames_; }

 private:
  std::vector<support::FrameBytes> frames_;
  /// In microseconds.
  std::vector<int> times_;
  int sent_ = 0;
};

}  // namespace console
