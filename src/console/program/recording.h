#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

#include "console/exit_code.h"
#include "console/program/instrument.h"
#include "recorder/reading/record_reader.h"
#include "recorder/session/end_reason.h"

namespace console {

/// A recording of the program without a window, from RUN to its end. It waits for its station as
/// long as it takes, tells how far it is, and names its files as they are complete. Nothing is
/// shown of them, so behind the end there is the log alone.
class Recording : private subroutines::EndListener, private packetroutines::RecordReader {
 public:
  /// The names of the files go to the results.
  Recording(Instrument& instrument, NoteLines& notes, std::ostream& results);
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;
  ~Recording() override = default;

  /// Presses RUN; 0 records into one file.
  void Begin(std::chrono::nanoseconds every);
  /// What is to be done from time to time while it runs.
  void Look();
  /// It has ended by itself.
  bool Over() const { return ended_.has_value(); }
  /// Since RUN.
  std::chrono::nanoseconds Lasts() const { return instrument_.Time().Now() - begun_; }
  /// Presses STOP, unless it is over. Where no ring was stored there is nothing to be ended.
  void End();
  /// What became of it, told in words where it is not what was asked for.
  ExitCode Outcome();

 private:
  void RecordingEnded(subroutines::EndReason reason) override { ended_ = reason; }
  void BuildRecordLog(bool& nothingToRead) override;
  void ViewRecording() override {}
  void WriteLog(const packetroutines::GapSearch& followed) override;

  formroutines::Application& Program() { return instrument_.Program(); }
  std::uint64_t FramesOf(std::size_t stream);
  bool AnyCame() { return FramesOf(0) > 0 || FramesOf(1) > 0; }
  bool AnyStored();
  void LookForLosses();
  void AwaitFrames();
  void ShowProgress();
  std::string ProgressText();
  /// The files have another name; those before are complete.
  void NameChanged();
  void TellFiles(const std::string& name);
  ExitCode OutcomeOfFrames();

  Instrument& instrument_;
  NoteLines& notes_;
  std::ostream& results_;
  std::optional<subroutines::EndReason> ended_;
  std::chrono::nanoseconds begun_{0};
  std::chrono::nanoseconds awaitedSince_{0};
  std::chrono::nanoseconds shown_{0};
  std::array<std::uint64_t, 2> framesBefore_{};
  /// The files at hand.
  std::string name_;
  bool anyFile_ = false;
  bool lost_ = false;
  /// The right to write was missing.
  bool refused_ = false;
};

}  // namespace console
