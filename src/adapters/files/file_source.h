#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "adapters/files/capture_file_reader.h"
#include "adapters/files/file_pace.h"
#include "adapters/frame_source.h"
#include "adapters/wire_filter.h"
#include "base/failure.h"
#include "platform/clock.h"

namespace adapters {

/// How often a capture file is played.
enum class FilePlay { OverAndOver, Once };

/// Plays a capture file at the pace of its time stamps, over and over unless once is asked for.
/// A start goes on where the last stop left off; a damaged file plays as far as it can be read.
class FileSource : public FrameSource {
 public:
  FileSource(std::filesystem::path file, const platform::Clock& clock,
             FilePlay play = FilePlay::OverAndOver);

  void Prepare(const SourceSettings& settings) override;
  void Start() override;
  void Stop() override { running_ = false; }
  void TakeNoMore() override;
  /// The file stays open, for its place to go on from.
  void Release() override { running_ = false; }
  std::optional<platform::CapturedFrame> Next() override;
  bool LookedAtAll() const override { return lookedAtAll_; }

  /// It was played once, to its end or to where it is damaged, and its frames were handed over.
  bool Ended() const { return ended_; }
  /// What is wrong with the file, as far as it was read; else empty.
  const std::string& Damage() const { return damage_; }

 private:
  void Open();
  /// Puts the next frame of the file into `waiting_` with the time when it is due.
  void Fetch();
  /// The end of the file, or where it can be read no further.
  void MeetEnd();
  /// Begins the file anew; there is no more to play where this does not give a frame.
  std::optional<RecordedFrame> FetchFromBeginning();
  void NoteDamage();
  void ForgetDamage();
  /// Tells about a damage of a file once, because the user cannot do more about it than know of it.
  void ReportDamage();
  platform::Failure Unplayable() const;

  std::filesystem::path file_;
  const platform::Clock& clock_;
  const FilePlay play_;
  SourceSettings settings_;
  std::optional<CaptureFileReader> reader_;
  std::optional<WireFilter> filter_;
  std::string filterText_;
  bool running_ = false;
  bool ended_ = false;
  bool lookedAtAll_ = true;
  /// Frames that are due later are not handed over.
  std::chrono::nanoseconds bound_ = std::chrono::nanoseconds::max();

  std::optional<RecordedFrame> waiting_;
  /// When the waiting frame is due; before it is fetched, when the frame before it was due.
  std::chrono::nanoseconds due_{};
  /// What the computer's clock would have shown when the monotonic one stood at 0.
  std::chrono::microseconds wallAtZero_{};
  FilePace pace_;
  /// How often the file has begun anew.
  std::uint64_t passes_ = 0;
  /// The pass in which the last frame was selected, or since which no more is taken.
  std::uint64_t searchedFrom_ = 0;

  std::string damage_;
  bool damageReported_ = false;
};

}  // namespace adapters
