#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "console/comtrade/comtrade_file.h"
#include "console/comtrade/rate_finder.h"
#include "console/comtrade/sample_order.h"
#include "platform/services/calendar.h"
#include "platform/services/file_system.h"
#include "sv/asdu.h"
#include "sv/sample_track.h"

namespace console {

/// Records one stream as it is on the wire into COMTRADE files of 2013, a single one each, in whole
/// numbers of 32 bits: all its channels, whatever their number and the rate. Its head needs the
/// rate, so the first samples wait until counter and times have shown it.
///
/// Lost samples are missing in a file. It ends where its samples would not be evenly spaced or most
/// of them missing: at another rate, at a hole of a second or more, where the sender began anew. No
/// older file is written over: the next free second gives the name, and a file that has its time
/// goes on until there is a name for the next one.
class StreamRecording : private SampleSink {
 public:
  using Time = std::chrono::microseconds;

  struct Wish {
    /// In the words of the head.
    std::string Station;
    /// Of the mains, in Hz; by the rate where nobody has told.
    std::optional<double> Frequency;
    /// So much goes into a file; 0 for all.
    std::chrono::duration<double> Every{0};
    /// The path without an extension of a file that begins at a moment.
    std::function<std::string(const platform::LocalTime&)> PathOf;
    /// A file has its samples up to now, or all of them.
    std::function<void(const std::string& path)> Stored = [](const std::string&) {};
    std::function<void(const std::string& path)> Finished = [](const std::string&) {};
  };

  StreamRecording(platform::FileSystem& files, const platform::Calendar& calendar, Wish wish);

  /// The next frame: its ASDUs of this stream, in their order.
  void Take(const std::vector<sv::Asdu>& asdus, Time arrived);
  /// The computer's clock was set by so much since the last frame.
  void SetClock(Time step);
  /// Nothing comes any more; what waits is stored.
  void Finish();

  /// Samples in all files, missing ones too, and what was lost, in samples, in them and between.
  std::int64_t Samples() const { return before_.Samples + (file_ ? file_->Samples() : 0); }
  std::int64_t Missing() const { return before_.Missing + (order_ ? order_->Missing() : 0); }
  /// Samples that were left out since they had other channels than the first one, or counters that
  /// have no place in their round.
  std::int64_t Unfit() const { return unfit_; }

 private:
  struct Sample {
    std::int64_t Counter = 0;
    std::uint8_t Synch = 0;
    std::vector<double> Values;
  };
  struct Frame {
    Time Arrived{0};
    std::uint32_t Asdus = 0;
    std::vector<Sample> Samples;
  };
  /// By which the moments of samples are told.
  struct Anchor {
    std::int64_t Counter = 0;
    std::uint8_t Synch = 0;
    Time Arrived{0};
  };
  struct Counts {
    std::int64_t Samples = 0;
    std::int64_t Missing = 0;
  };

  void Add(std::span<const double> stored) override;
  void AddMissing(std::int64_t samples) override;

  Frame Kept(const std::vector<sv::Asdu>& asdus, Time arrived);
  void StoreWaiting(std::uint32_t rate);
  void StoreFrame(const Frame& frame);
  void StoreSample(const Sample& sample, Time arrived);
  void Follow(const Frame& frame);
  void Begin(Time moment, const std::string& path);
  /// Goes on in another file where this one has its time, before the next sample.
  void EndInTime();
  void StoreInTime();
  void EndRun();
  void EndFile();
  /// The path without an extension for a file that begins then, which is taken by that; nothing
  /// where another has it.
  std::optional<std::string> TakePathAt(std::chrono::seconds second);
  std::string TakeFreePath(Time moment);
  ComtradeHead HeadOf(Time moment) const;
  Time MomentOf(const Anchor& anchor) const;

  platform::FileSystem& files_;
  const platform::Calendar& calendar_;
  Wish wish_;
  RateFinder finder_;
  sv::SampleTrack track_;
  std::uint32_t asdus_ = 0;
  std::size_t channels_ = 0;
  /// Samples a second of what is recorded; 0 before it was known.
  std::uint32_t rate_ = 0;
  /// Frames that were followed.
  std::uint64_t frames_ = 0;
  std::deque<Frame> waiting_;
  std::string path_;
  std::optional<ComtradeFile> file_;
  /// Of a run of samples whose places the counter tells, in one file or several.
  std::optional<SampleOrder> order_;
  Time runBegan_{0};
  Anchor latest_;
  /// Samples of the file when it was stored last, and with which it has its time.
  std::int64_t storedAt_ = 0;
  std::int64_t full_ = 0;
  Counts before_;
  std::int64_t unfit_ = 0;
};

}  // namespace console
