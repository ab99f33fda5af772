#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/recorder_controls.h"
#include "recorder/reading/record_analysis.h"
#include "recorder/writing/writing.h"
#include "support/failing_files.h"
#include "support/fake_platform.h"
#include "support/sv_frame.h"

namespace support {

/// Files whose opening for reading can be watched, and fail.
class WatchedFiles : public FailingFiles {
 public:
  using FailingFiles::FailingFiles;

  std::unique_ptr<platform::InputFile> Read(const std::string& path) override {
    if (AtRead) AtRead(Reads + 1);
    return FailingFiles::Read(path);
  }

  /// Runs before each opening for reading, which it may fail; the first one is 1.
  std::function<void(int)> AtRead;
};

/// A recording that was stopped, in the memory of a played platform, and what follows it.
class AnalysisScene : public FakePlatform {
 public:
  AnalysisScene() {
    Settings.StoragePath = "c:\\StoredData";
    Settings.FileFormat = "TXT";
    Settings.FilterString = "and vlan 7";
    Settings.FilterContent = {"MU01", "MU02"};
    RecordFileName = "SV record 09.03.2024 13-04-06.txt";
    LastFrame(SvFrame("MU01").Bytes());
  }

  /// The frame that came last.
  void LastFrame(const FrameBytes& bytes) {
    Frame.Redim(static_cast<std::int16_t>(bytes.size()));
    Frame.Copy(bytes);
  }
  std::string PathOf(const std::string& name) const { return "c:\\StoredData\\" + name; }
  std::string Path() const { return PathOf(RecordFileName); }
  std::string LogPath() const { return PathOf("Errorlog " + RecordFileName); }
  void Recorded(const std::string& text) { Files.Stored[Path()] = text; }
  bool HasLog() const { return Files.FileExists(LogPath()); }
  /// The log's line of this number, from 1 on, without its end.
  std::string LogLine(int number) const {
    const std::string& text = Files.Stored.at(LogPath());
    std::size_t begin = 0;
    for (int line = 1; line < number; ++line) begin = text.find("\r\n", begin) + 2;
    return text.substr(begin, text.find("\r\n", begin) - begin);
  }
  /// Whether there was nothing to read.
  bool BuildRecordLog() {
    bool nothing = false;
    Analysis.BuildRecordLog(nothing);
    return nothing;
  }

  WatchedFiles Disk{Files};
  config::Settings Settings;
  config::RunSettings Present;
  packetroutines::AcquisitionState State;
  packetroutines::RecordRings Rings;
  std::string& RecordFileName = State.RecordFileName;
  /// Another recording runs by now.
  bool& Recording = State.LookingForRecording;
  forms::RecorderControls Recorder;
  packetroutines::PacketBytes Frame;
  packetroutines::RecorderServices Platform{.Usual = {Events, Dialogs, Runtime},
                                            .Code = Code,
                                            .Numbers = Numbers,
                                            .Files = Disk,
                                            .Calendar = Calendar,
                                            .Pointer = Pointer,
                                            .Links = Links,
                                            .Timers = Timers,
                                            .Sleep = Sleep,
                                            .Sync = nullptr};
  packetroutines::Writing Writing{Recorder, Settings, Present, State, Rings, Platform};
  packetroutines::FileNumbers& Open = Writing.Open;
  packetroutines::RecordAnalysis Analysis{
      {Settings, Present, State, Writing.Formats, Open, Platform}, Frame, Recorder};
};

/// The text of a recording whose ramp has these values; its eight values are 1.
inline std::string LinesOf(const std::vector<std::int32_t>& ramp) {
  std::string text;
  for (std::size_t i = 0; i < ramp.size(); ++i) {
    text += std::to_string(i) + ';' + std::to_string(ramp[i]) + ";1;1;1;1;1;1;1;1\r\n";
  }
  return text;
}

/// `count` values of a ramp without a gap, from `first` on.
inline std::vector<std::int32_t> Ramp(std::int32_t count, std::int32_t first = 0) {
  std::vector<std::int32_t> ramp;
  for (std::int32_t i = 0; i < count; ++i) ramp.push_back((first + i) % 4000);
  return ramp;
}

}  // namespace support
