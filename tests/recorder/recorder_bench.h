#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "recorder/recorder.h"
#include "support/capture_bench.h"
#include "support/failing_files.h"

namespace recorder_tests {

/// What follows a recording, written down in the journal, with the real reader behind it where a
/// test has one.
class NotedReader : public packetroutines::RecordReader {
 public:
  explicit NotedReader(support::Journal& journal) : journal_(journal) {}
  void BuildRecordLog(bool& nothingToRead) override {
    journal_.emplace_back("log");
    if (AtLog) AtLog();
    if (Behind != nullptr) Behind->BuildRecordLog(nothingToRead);
  }
  void ViewRecording() override {
    journal_.emplace_back("view");
    if (AtView) AtView();
    if (Behind != nullptr) Behind->ViewRecording();
  }
  void WriteLog(const packetroutines::GapSearch& followed) override {
    journal_.emplace_back("followed log");
    if (Behind != nullptr) Behind->WriteLog(followed);
  }

  std::function<void()> AtLog;
  std::function<void()> AtView;
  packetroutines::RecordReader* Behind = nullptr;

 private:
  support::Journal& journal_;
};

/// The recorder on a bench: the acquisition in front of it, files in memory behind it unless the
/// test brings its own, and in the place of the log and the quick view notes in the journal. The
/// contents "MU01" and "MU02" mark the two streams; only the first is recorded unless a test says
/// so.
class RecorderBench : public support::CaptureBench {
 public:
  explicit RecorderBench(platform::FileSystem* files = nullptr);

  support::FailingFiles Disk;
  subroutines::Recorder Recorder{Main,
                                 Config,
                                 Core,
                                 {.Usual = Services,
                                  .Code = Code,
                                  .Numbers = Numbers,
                                  .Files = Disk,
                                  .Calendar = Calendar,
                                  .Pointer = Pointer,
                                  .Links = Links,
                                  .Timers = Timers,
                                  .Sleep = Sleep,
                                  .Sync = &Sync}};
  packetroutines::Writing& Writing = Recorder.Writing;
  subroutines::RecordingSession& Session = Recorder.Session;
  NotedReader Reader{Journal};

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
  /// The names of the files there, but for those of events.
  std::vector<std::string> Names() const;
  /// How often an entry stands in the journal.
  int Times(const std::string& entry) const;
  /// The folder for data is pulled out, with all that lies in it.
  void LoseFolder();
  void BringFolderBack() { Files.Folders.insert(Settings.StoragePath); }

  /// The paths of the bench's folder.
  static std::string Path(const std::string& name) { return "c:\\StoredData\\" + name; }

  const std::string& Caption(std::size_t line) const { return Main.Label10[line].Caption; }
};

/// The recorder with the real log and quick view behind it.
class ReadingBench : public RecorderBench {
 public:
  explicit ReadingBench(platform::FileSystem* files = nullptr) : RecorderBench(files) {
    Reader.Behind = &Recorder.Reading;
  }
};

/// What `Fill` puts into a cell; different in each, and exact in decimal digits.
double ValueAt(std::size_t stream, std::size_t channel, int cell);

/// The lines of a text, each without its end; a last one without an end is kept.
std::vector<std::string> Lines(const std::string& text);

/// The name of a recording of the bench's date.
inline const std::string Started = "SV record 09.03.2024 14-05-07";

/// What the page says behind two streams in text format.
inline const std::string WhereTotalsStand =
    "Two streams have no log; the totals of both stand in \"Events " + Started + ".csv\".";

}  // namespace recorder_tests
