#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/plug.h"
#include "capture/consumers.h"
#include "recorder/events/recording_events.h"
#include "recorder/reading/followed_log.h"
#include "recorder/reading/record_reader.h"
#include "recorder/session/file_division.h"
#include "recorder/session/session_files.h"
#include "recorder/writing/writing.h"

namespace subroutines {

/// The parts of a recording that goes on in new files from time to time, with no sample missing
/// between: the files that are over get their end, their totals and, where there is one stream of
/// text, their log; the next rings go to files of a new name.
///
/// It works behind a whole ring, within the event of its last frame, and reads no file back: what
/// waits in the driver's buffer meanwhile must not be lost. What fails in it is told on the view's
/// line, and the new files begin all the same.
class RecordingParts : public packetroutines::RingWitness, public packetroutines::AdapterConsumer {
 public:
  RecordingParts(packetroutines::Writing& writing, packetroutines::RecordingEvents& events,
                 packetroutines::SessionFiles& files,
                 const platform::Plug<packetroutines::RecordReader>& reader);

  /// From the next RUN on each file holds so long, up to the end of a ring; 0 for one file.
  void Every(std::chrono::nanoseconds span) { division_.Every(span); }
  /// RUN: the recording has its name.
  void Begin();
  /// It is over, or about to be.
  void End();
  /// The files that it had before those at hand.
  std::int64_t Before() const { return before_; }
  /// Something of the files at hand was about to be written, so they may be there.
  bool Begun() const { return begun_; }
  void RingBegins() override { BeginFiles(); }
  void RingDone(std::size_t stream, const std::string& failure) override;
  void AdapterChanged(platform::Presence presence) override;

 private:
  /// Before anything of the files at hand is written, their name is taken.
  void BeginFiles();
  void Follow(std::size_t stream, bool stored);
  void GoOnIn(const std::string& name);
  /// One stream is recorded in text.
  bool HasLog() const;
  void WriteLog();

  packetroutines::Writing& writing_;
  packetroutines::RecordingEvents& events_;
  packetroutines::SessionFiles& files_;
  const platform::Plug<packetroutines::RecordReader>& reader_;
  FileDivision division_;
  packetroutines::FollowedLog log_;
  /// Rings of the first stream in the files at hand.
  std::int64_t written_ = 0;
  std::int64_t before_ = 0;
  bool running_ = false;
  bool begun_ = false;
};

}  // namespace subroutines
