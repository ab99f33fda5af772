#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/number_text.h"
#include "platform/controls/label.h"
#include "platform/controls/timer.h"
#include "platform/services/file_system.h"

namespace packetroutines {

/// Tells with each ring how much room the disk of a recording still has, and from the second one on
/// for how long that suffices at the rate of the last minute. A disk that does not tell its room
/// leaves the line empty.
class DiskRoom {
 public:
  DiskRoom(platform::Label& line, const platform::FileSystem& files,
           const platform::NumberText& numbers, const platform::TimerCount& time)
      : line_(line), files_(files), numbers_(numbers), time_(time) {}

  /// No recording is under way: nothing is told.
  void Clear();
  /// A ring of a stream stands in its file. True where `Short` has changed.
  bool RingWritten(std::size_t stream, const std::string& path);
  /// The room suffices for less than an hour.
  bool Short() const { return short_; }

 private:
  /// A moment in which each stream that comes has a whole ring more than at the mark before.
  struct Mark {
    std::chrono::nanoseconds At{0};
    std::int64_t Written = 0;
  };

  void Count(std::size_t stream, const std::string& path);
  void SetMark(std::size_t stream);
  /// How long the room suffices, in seconds; nothing as long as the rate is not known.
  std::optional<double> Lasts(std::int64_t room) const;
  std::string Text(std::int64_t room, std::optional<double> seconds) const;

  platform::Label& line_;
  const platform::FileSystem& files_;
  const platform::NumberText& numbers_;
  const platform::TimerCount& time_;
  /// The size of each stream's file at its latest ring, in bytes.
  std::array<std::int64_t, 2> sizes_{};
  /// Bytes of both streams since RUN.
  std::int64_t written_ = 0;
  std::vector<Mark> marks_;
  /// The streams that had a ring since the latest mark, that of the mark itself included.
  std::array<bool, 2> since_{};
  bool short_ = false;
};

}  // namespace packetroutines
