#pragma once

#include <cstdint>
#include <string>

#include "capture/packet_bytes.h"
#include "forms/recorder_controls.h"
#include "recorder/reading/quick_view.h"
#include "recorder/reading/reading_context.h"
#include "recorder/reading/record_log.h"
#include "recorder/reading/record_reader.h"

namespace packetroutines {

/// What follows a recording: its log, its view, and the ways to open its files on the page.
class RecordAnalysis : public RecordReader {
 public:
  /// `frame` is the frame that came last.
  RecordAnalysis(const ReadingContext& context, const PacketBytes& frame,
                 forms::RecorderControls& recorder);

  void BuildRecordLog(bool& nothingToRead) override { log_.BuildRecordLog(nothingToRead); }
  void ViewRecording() override { view_.ViewRecording(); }
  void WriteLog(const GapSearch& followed) override { log_.WriteLog(followed); }

 private:
  void OpenTextFile();
  void OpenFolder();
  void TellOfFolder(std::int32_t code);

  ReadingContext context_;
  forms::RecorderControls& recorder_;
  RecordLog log_;
  subroutines::QuickView view_;
  /// What the line says of the folder; empty where it says nothing of it.
  std::string folderTrouble_;
};

}  // namespace packetroutines
