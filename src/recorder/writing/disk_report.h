#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/failure.h"
#include "base/number_text.h"
#include "forms/recorder_controls.h"
#include "platform/services/calendar.h"
#include "platform/services/file_system.h"
#include "recorder/writing/disk_room.h"

namespace packetroutines {

/// Tells on the Recorder view what of a recording is on disk, since when a part of it is not, and
/// what of its end was left out. It only looks on: a recording that cannot be stored goes on as the
/// counters tell.
///
/// A file counts by its name, since what is open takes writes also where its name is gone.
class DiskReport {
 public:
  DiskReport(forms::RecorderControls& recorder, const platform::FileSystem& files,
             const platform::Calendar& calendar, const platform::NumberText& numbers,
             const platform::TimerCount& time)
      : recorder_(recorder),
        files_(files),
        calendar_(calendar),
        numbers_(numbers),
        room_(recorder.Room, files, numbers, time) {}

  /// A recording begins.
  void Begin();
  /// It has ended; what is told of its files stays.
  void End();
  /// One more ring of a stream was written to its file.
  void RingWritten(std::size_t stream, const std::string& path);
  /// A ring was lost. The first reason stays until a ring is stored again: what follows comes of
  /// it.
  void NotStored(std::size_t stream, const platform::Failure& reason);
  /// Looks whether the rings that were stored are there still.
  void LookForFile(std::size_t stream);
  /// Rings of the stream were stored, and their file is gone.
  bool Gone(std::size_t stream) const;
  /// A ring of the stream was stored, whatever became of it.
  bool AnyStored(std::size_t stream) const { return !streams_[stream].Path.empty(); }
  /// What else there is to tell of the recording, as a sentence; one that stands already is not
  /// told twice.
  void Add(const std::string& sentence);

 private:
  struct Stream {
    /// The file; empty until a ring was stored.
    std::string Path;
    /// Rings that are in the file.
    std::int64_t Rings = 0;
    /// Rings that were lost, also those of a file that is gone.
    std::int64_t Lost = 0;
    bool Failing = false;
    std::string Reason;
    /// What the line says of the stream.
    std::string Sentence;
  };

  void Lose(std::size_t stream, std::int64_t rings, const platform::Failure& reason);
  void ShowRings(std::size_t stream);
  void ShowLine();
  std::string Now() const { return calendar_.GeneralText(calendar_.Now()); }
  std::string LostRings(const Stream& stream) const;

  forms::RecorderControls& recorder_;
  const platform::FileSystem& files_;
  const platform::Calendar& calendar_;
  const platform::NumberText& numbers_;
  DiskRoom room_;
  std::array<Stream, 2> streams_;
  std::vector<std::string> sentences_;
};

}  // namespace packetroutines
