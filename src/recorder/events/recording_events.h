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
class RecordingEvents : public RingWitness, public AdapterConsumer {
 public:
  explicit RecordingEvents(const EventSources& sources);

  /// RUN: the recording has its name.
  void Begin();
  void RingDone(std::size_t stream, const std::string& failure) override;
  void AdapterChanged(platform::Presence presence) override;
  /// The recording is over; once. `why` in words.
  void End(const std::string& why);
  /// The name of the events file; empty where none was written.
  std::string Name() const;

 private:
  struct Stream {
    /// Rings that were stored, and rings that were not.
    std::int64_t Stored = 0;
    std::int64_t Lost = 0;
    /// Those in the file as the report counts them, and those before that in a file that was away.
    std::int64_t Counted = 0;
    std::int64_t Before = 0;
    /// The size of the file, and what a file that is gone held.
    std::int64_t Size = 0;
    std::int64_t Gone = 0;
    bool Failing = false;
    bool Met = false;
    sv::TrackTotals AtBegin;

    std::int64_t InFile() const { return Before + Counted; }
  };

  void TellStream(std::size_t stream);
  void TellStretch(std::size_t stream);
  void TellGaps(std::size_t stream, const sv::Stretch& stretch);
  void TellRing(std::size_t stream, const std::string& failure);
  void LookForFile(std::size_t stream);
  void CountStored(std::size_t stream);
  void TellSystem();
  void TellTotals(std::size_t stream);
  void Write();
  std::string Settings() const;
  void Add(const char* what, const std::string& figures = {},
           std::optional<std::uint64_t> count = std::nullopt);
  RecordEvent Of(std::size_t stream, const char* what) const;
  /// The line of the stream's file that a place of the ring at hand has.
  std::int64_t LineAt(std::size_t stream, std::uint32_t place) const;
  void AddHappened(std::size_t stream, const char* what, const sv::Happened& happened,
                   const std::string& figures = {});

  EventSources from_;
  const WritingContext& context_;
  EventsFile file_;
  bool running_ = false;
  std::array<Stream, 2> streams_;
  std::uint64_t tooLong_ = 0;
  std::optional<std::uint64_t> dropped_;
};

}  // namespace packetroutines
