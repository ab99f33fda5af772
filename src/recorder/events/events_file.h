#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/services/calendar.h"
#include "platform/services/file_system.h"
#include "recorder/events/event_line.h"

namespace packetroutines {

/// The file beside a recording that tells what happened to it. Events are gathered and stand in the
/// file before the next ring; where it cannot be written, as while its folder is away, they wait
/// for the next time.
class EventsFile {
 public:
  EventsFile(platform::FileSystem& files, const platform::Calendar& calendar)
      : files_(files), calendar_(calendar) {}

  /// A recording begins whose events go to this path. Nothing is written yet.
  void Begin(const std::string& path);
  /// The recording goes on with another file. Events that still wait for the one before are told in
  /// this one.
  void GoOn(const std::string& path);
  /// Its path is another one before anything stands in it.
  void Rename(const std::string& path) { path_ = path; }
  void Add(const RecordEvent& event);
  /// Nothing was recorded that a file is worth: its events are dropped, but for those that still
  /// wait for the file before.
  void LeaveOut();
  /// Brings what waits to the file. True where something was written.
  bool Write();
  const std::string& Path() const { return path_; }
  /// A line was written, and the file is there.
  bool IsThere() const { return written_ && files_.FileExists(path_); }

 private:
  platform::FileSystem& files_;
  const platform::Calendar& calendar_;
  std::string path_;
  /// Lines that are not written yet.
  std::string waiting_;
  /// So many bytes of them are of the file before.
  std::size_t carried_ = 0;
  std::uint64_t leftOut_ = 0;
  bool written_ = false;
};

}  // namespace packetroutines
