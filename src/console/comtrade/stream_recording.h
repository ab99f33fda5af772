#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "console/comtrade/comtrade_file.h"
#include "console/comtrade/sample_order.h"
#include "platform/services/calendar.h"
#include "platform/services/file_system.h"
#include "sv/asdu.h"
#include "sv/sample_track.h"

namespace console {

/// Records one stream as it is on the wire into COMTRADE files of 2013, a single one each, in whole
/// numbers of 32 bits: all its channels, whatever their number and the rate. Its head needs the
/// rate, so the first samples wait until counter and times have shown it.
class StreamRecording {
 public:
  using Time = std::chrono::microseconds;

  struct Wish {
    /// In the words of the head.
    std::string Station;
    /// Of the mains, in Hz.
    double Frequency = 50;
    /// So much goes into a file; 0 for all.
    std::chrono::seconds Every{0};
    /// The path without an extension of a file that begins at a moment.
    std::function<std::string(const platform::LocalTime&)> PathOf;
    /// A file has its samples up to now, or all of them.
    std::function<void(const std::string& path)> Stored = [](const std::string&) {};
    std::function<void(const std::string& path)> Finished = [](const std::string&) {};
  };

  StreamRecording(platform::FileSystem& files, const platform::Calendar& calendar, Wish wish);

  /// The next frame: its ASDUs of this stream, in their order.
  void Take(const std::vector<sv::Asdu>& asdus, Time arrived);
  /// Nothing comes any more; what waits is stored.
  void Finish();

  /// Samples in all files, missing ones too, and what was met, in samples.
  std::int64_t Samples() const { return before_.Samples + (file_ ? file_->Samples() : 0); }
  std::int64_t Missing() const { return before_.Missing + (order_ ? order_->Missing() : 0); }
  /// Samples that were left out since they had other channels than the first one.
  std::int64_t Unfit() const { return unfit_; }

 private:
  struct Sample {
    std::int64_t Counter = 0;
    Time Arrived{0};
    std::uint8_t Synch = 0;
    /// Samples that the times tell of in front of it and the counter does not.
    std::uint64_t Unseen = 0;
    std::vector<double> Values;
  };
  struct Counts {
    std::int64_t Samples = 0;
    std::int64_t Missing = 0;
  };

  void StoreWaiting();
  void StoreSample(const Sample& sample);
  void Begin(const Sample& first);
  void EndFile();
  ComtradeHead HeadOf(const Sample& first) const;
  Time MomentOf(const Sample& first) const;

  platform::FileSystem& files_;
  const platform::Calendar& calendar_;
  Wish wish_;
  sv::SampleTrack track_;
  std::uint32_t asdus_ = 0;
  std::size_t channels_ = 0;
  /// Samples a second, once it is known.
  std::uint32_t rate_ = 0;
  std::deque<Sample> waiting_;
  std::string path_;
  std::optional<ComtradeFile> file_;
  std::optional<SampleOrder> order_;
  std::int64_t storedAt_ = 0;
  Counts before_;
  std::int64_t unfit_ = 0;
};

}  // namespace console
