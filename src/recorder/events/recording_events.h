#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "capture/stream_watch.h"
#include "forms/setup_controls.h"
#include "recorder/events/events_file.h"
#include "recorder/writing/writing.h"

namespace packetroutines {

/// What the events of a recording are told from.
struct EventSources {
  Writing& Samples;
  StreamWatch& Watch;
  CaptureSession& Capture;
  const AcquisitionState& State;
  const forms::SetupControls& Setup;
};

/// Tells in the events file what happened to a recording: what its log cannot know, as it has the
/// counter of the samples alone. It looks at what the streams met whenever a ring of one is done,
/// so the frames pay nothing for it.
class RecordingEvents {
 public:
  explicit RecordingEvents(const EventSources& sources);

  /// RUN: the recording has its name.
  void Begin();
  /// The recording goes on in other files: its part that is over gets its totals. What befell a
  /// ring that is not full yet is told with the ring.
  void EndPart(const std::string& why);
  /// Behind that, it has its new name.
  void BeginPart();
  /// The recording has another name before anything of it is on disk.
  void Renamed();
  /// A frame of the files at hand has come.
  bool AnyCame() const;
  /// The ring of a stream was written, or could not be; see `RingWitness`.
  void RingDone(std::size_t stream, const std::string& failure);
  /// The adapter went or is there again; see `AdapterConsumer`.
  void AdapterChanged(platform::Presence presence);
  /// The recording is over; once. `why` in words.
  void End(const std::string& why);
  /// The disk may have room again: brings what still waits to the file of a recording that is over.
  void WriteRest() { Write(); }
  /// The name of the events file; empty where none was written.
  std::string Name() const;

 private:
  struct Stream {
    /// Rings that were stored, and rings that were not.
    std::int64_t Stored = 0;
    std::int64_t Lost = 0;
    /// Rings in the file. One that is away is taken to come back until it does not.
    std::int64_t InFile = 0;
    std::int64_t Size = 0;
    bool Away = false;
    bool Failing = false;
    bool Met = false;
    /// No frame comes, and that was told.
    bool Silent = false;
    /// Samples that did not come up to the end, by the time.
    std::uint64_t MissingAtEnd = 0;
    /// What the report counted of rings and of files that went.
    std::int64_t Written = 0;
    std::int64_t FilesGone = 0;
    /// At RUN.
    std::uint64_t HeldId = 0;
    sv::TrackTotals AtBegin;
  };

  std::string Path() const;
  /// The files at hand begin.
  void BeginFiles();
  void TellStream(std::size_t stream);
  /// The ring whose places are told begins behind so many.
  void TellStretch(std::size_t stream, std::int64_t ringsBefore);
  void TellGaps(std::size_t stream, const sv::Stretch& stretch);
  void TellSilence(std::size_t stream, StreamWatch::Time now);
  void TellSilentEnd(std::size_t stream);
  void TellRing(std::size_t stream, const std::string& failure);
  void LookForFile(std::size_t stream);
  void CountStored(std::size_t stream);
  void TellSystem();
  /// Something befell the files at hand that stands nowhere else.
  bool WorthAFile() const;
  void TellTotals(std::size_t stream);
  void Write();
  std::string Settings() const;
  void Add(const char* what, const std::string& figures = {},
           std::optional<std::uint64_t> count = std::nullopt);
  RecordEvent Of(std::size_t stream, const char* what) const;
  /// The line of the stream's file that a place of the ring at hand has.
  std::int64_t LineAt(std::uint32_t place) const {
    return ringsBefore_ * RecordRings::Cells + place + 1;
  }
  void AddHappened(std::size_t stream, const char* what, const sv::Happened& happened,
                   const std::string& figures = {});

  EventSources from_;
  const WritingContext& context_;
  EventsFile file_;
  bool running_ = false;
  /// When the files at hand were begun, where others were before them.
  StreamWatch::Time goesOnFrom_{0};
  std::array<Stream, 2> streams_;
  std::int64_t ringsBefore_ = 0;
  std::uint64_t tooLong_ = 0;
  std::optional<std::uint64_t> dropped_;
};

}  // namespace packetroutines
