#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/failure.h"
#include "forms/recorder_controls.h"
#include "platform/controls/timer.h"
#include "recorder/writing/disk_room.h"
#include "recorder/writing/recorder_services.h"

namespace packetroutines {

/// Tells on the Recorder view what of a recording is on disk, since when a part of it is not, and
/// what of its end was left out. It only looks on: a recording that cannot be stored goes on as the
/// counters tell.
///
/// On disk is what outlives a power cut, where the platform can tell that (`DiskSync`): each ring
/// is asked for behind its write, and counts once it went through. A file counts by its name, since
/// what is open takes writes also where its name is gone.
class DiskReport {
 public:
  DiskReport(forms::RecorderControls& recorder, const RecorderServices& services);

  /// A recording begins.
  void Begin();
  /// It has ended; what is told of its files stays.
  void End();
  /// One more ring of a stream was written to its file.
  void RingWritten(std::size_t stream, const std::string& path);
  /// Another file of the recording was written, such as one that tells of the samples, or has got
  /// its end.
  void AlsoWritten(const std::string& path);
  /// A ring was lost. The first reason stays until a ring is stored again: what follows comes of
  /// it.
  void NotStored(std::size_t stream, const platform::Failure& reason);
  /// Looks whether the rings that were stored are there still.
  void LookForFile(std::size_t stream);
  /// Rings of the stream were stored, and their file is gone.
  bool Gone(std::size_t stream) const;
  /// Why a ring of the stream was lost latest.
  const std::string& Reason(std::size_t stream) const { return streams_[stream].Reason; }
  /// A ring was lost latest since the right to write is missing.
  bool Refused(std::size_t stream) const { return streams_[stream].Refused; }
  /// Rings of the stream that were written since RUN, whatever became of their file, and files that
  /// went.
  std::int64_t Written(std::size_t stream) const { return streams_[stream].Written; }
  std::int64_t FilesGone(std::size_t stream) const { return streams_[stream].FilesGone; }
  /// Rings of the files at hand are not on the disk, or may not be.
  bool AnyLost() const;
  /// A ring of the stream was stored, whatever became of it.
  bool AnyStored(std::size_t stream) const { return !streams_[stream].Path.empty(); }
  /// What else there is to tell of the recording, as a sentence; one that stands already is not
  /// told twice.
  void Add(const std::string& sentence);
  /// The same of what failed beside the rings, such as the end of a file.
  void AddTrouble(const std::string& sentence);
  /// The same of what a box tells.
  void NoteTrouble() { anyTrouble_ = true; }
  bool AnyTrouble() const { return anyTrouble_; }

 private:
  /// A ring, or another file, that was written and is on its way to the disk.
  struct Waiting {
    std::string Path;
    /// The number of its request.
    std::uint64_t Request = 0;
    std::int64_t Bytes = 0;
  };
  struct Stream {
    /// The file; empty until a ring was stored.
    std::string Path;
    /// Its size behind the latest ring.
    std::int64_t Size = 0;
    /// Rings that are in the file.
    std::int64_t Rings = 0;
    std::int64_t Written = 0;
    std::int64_t FilesGone = 0;
    /// Those that are on disk, and their bytes.
    std::int64_t Stored = 0;
    std::int64_t StoredBytes = 0;
    std::vector<Waiting> OnTheWay;
    /// Rings that the disk failed on their way.
    std::int64_t Doubtful = 0;
    /// Since when, and why.
    std::string Doubt;
    /// Rings that were lost, also those of a file that is gone.
    std::int64_t Lost = 0;
    bool Failing = false;
    std::string Reason;
    bool Refused = false;
    /// What the line says of the stream.
    std::string Sentence;
  };

  void Lose(std::size_t stream, std::int64_t rings, const platform::Failure& reason);
  static void Forget(Stream& stream);
  /// Takes what became of the requests since.
  void Settle(std::size_t stream);
  void SettleOthers();
  /// Nothing is lost of what could not be opened, as a file whose folder was away for a while.
  void AskAnew(Waiting& written, const platform::DiskState& state);
  platform::DiskState StateOf(const std::string& path) const;
  void TakeDoubt(std::size_t stream, std::int64_t rings, const platform::Failure& reason);
  std::uint64_t Ask(const std::string& path);
  void Look();
  bool AnyOnTheWay() const;
  /// So many of the rings that are on their way are told of as such.
  void ShowRings(std::size_t stream, std::size_t told);
  void ShowLine();
  std::string Now() const { return services_.Calendar.GeneralText(services_.Calendar.Now()); }
  /// "1 ring", "2 whole rings".
  std::string RingsText(std::int64_t rings, const char* kind = "") const;

  forms::RecorderControls& recorder_;
  const RecorderServices services_;
  DiskRoom room_;
  std::array<Stream, 2> streams_;
  /// Files that were written beside the rings, and those of the recording before.
  std::vector<Waiting> others_;
  std::vector<std::string> sentences_;
  bool anyTrouble_ = false;
  /// Looks at what is on its way.
  platform::Timer look_;
};

}  // namespace packetroutines
