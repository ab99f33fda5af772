#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "recorder/recording_session.h"
#include "recorder/sample_writer.h"
#include "support/capture_bench.h"
#include "support/failing_files.h"

namespace recorder_tests {

/// What follows a recording, written down in the journal.
class NotedReader : public packetroutines::RecordReader {
 public:
  explicit NotedReader(support::Journal& journal) : journal_(journal) {}
  void BuildRecordLog(bool&) override {
    journal_.emplace_back("log");
    if (AtLog) AtLog();
  }
  void ViewRecording() override { journal_.emplace_back("view"); }

  std::function<void()> AtLog;

 private:
  support::Journal& journal_;
};

/// The recorder on a bench: the acquisition core in front of it, files in memory behind it, and in
/// the place of the log and the quick view notes in the journal. The contents "MU01" and "MU02"
/// mark the two streams; only the first is recorded unless a test says so.
class RecorderBench : public support::CaptureBench {
 public:
  RecorderBench();

  support::FailingFiles Disk{Files};
  packetroutines::FileNumbers Open{Disk};
  packetroutines::RecordContext Context{Settings, Present, State, Rings, Disk, Open, Numbers, Code};
  packetroutines::Worksheets Sheets{Open, Numbers, Code};
  packetroutines::TextWriter Text{Context};
  packetroutines::WorksheetWriter Sheet{Context, Sheets, Session};
  packetroutines::ComtradeWriter Comtrade{Context};
  packetroutines::DiskReport Report{Main, Disk, Calendar, Numbers};
  packetroutines::RecordWriters Writers{Text, Sheet, Comtrade, Sheets, Report};
  packetroutines::SampleWriter Samples{Context, Writers,     {Main, Main},
                                       State,   Acquisition, Services};
  NotedReader Reader{Journal};
  subroutines::StoredSettings Stored{Store, Numbers, Settings};
  subroutines::RecordingSession Session{Main,
                                        Settings,
                                        Stored,
                                        State,
                                        Acquisition,
                                        {Context, Writers, Samples, Reader},
                                        {Services, Calendar}};

  /// Presses RUN in a format, with the first frame received, and begins the journal anew.
  void Run(const std::string& format);
  /// Presses STOP.
  void Stop() { Main.CWButton3.Value = false; }
  /// Records both streams.
  void TakeBoth();

  /// Fills the ring of a stream with the values of `ValueAt`, and the counts from `first` on.
  void Fill(std::size_t stream, int first = 0);
  /// Writes a ring, as the packet event does with `blocks` blocks counted.
  void WriteRing(std::int16_t stream, std::int32_t blocks = 9);
  /// Receives frames of a stream: `count` of them, numbered from `first`.
  void Frames(int count, const std::string& id = "MU01", int first = 0);

  /// The content of a file in the folder for data; "missing" where there is none.
  std::string Content(const std::string& name) const;
  /// The names of the files there.
  std::vector<std::string> Names() const;
  /// The paths of the bench's folder.
  static std::string Path(const std::string& name) { return "c:\\StoredData\\" + name; }

  const std::string& Caption(std::size_t line) const { return Main.Label10[line].Caption; }
};

/// What `Fill` puts into a cell; different in each, and exact in decimal digits.
double ValueAt(std::size_t stream, std::size_t channel, int cell);

/// The lines of a text, each without its end; a last one without an end is kept.
std::vector<std::string> Lines(const std::string& text);

/// The name of a recording of the bench's date.
inline const std::string Started = "SV record 09.03.2024 14-05-07";

}  // namespace recorder_tests
