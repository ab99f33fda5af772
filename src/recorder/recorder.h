#pragma once

#include <cstdint>

#include "capture/acquisition.h"
#include "capture/view.h"
#include "config/configuration.h"
#include "forms/main_form.h"
#include "platform/services/calendar.h"
#include "platform/services/file_system.h"
#include "platform/services/mouse_pointer.h"
#include "platform/services/services.h"
#include "platform/services/system_services.h"
#include "recorder/reading/record_analysis.h"
#include "recorder/session/recording_session.h"
#include "recorder/session/trigger_block.h"
#include "recorder/writing/disk_report.h"
#include "recorder/writing/sample_writer.h"

namespace subroutines {

/// What the recorder uses of the platform.
struct RecorderServices {
  platform::Services Usual;
  const platform::CodePage& Code;
  const platform::NumberText& Numbers;
  platform::FileSystem& Files;
  const platform::Calendar& Calendar;
  platform::MousePointer& Pointer;
  platform::ShellLinks& Links;
};

/// The Recorder view: the session from RUN to STOP, what writes the samples, and what reads a
/// recording back.
class Recorder : public packetroutines::View, private packetroutines::RecordConsumer {
 public:
  Recorder(forms::Main& main, config::Configuration& config,
           packetroutines::Acquisition& acquisition, const RecorderServices& services);

  std::int16_t Tab() const override { return forms::tab::Recorder; }
  void Load() override;
  void Withdraw() override;
  void Show(const platform::Routine& run) override;
  void Hide() override;
  bool InHand() const override { return Session.InHand(); }

  packetroutines::FileNumbers Open;
  packetroutines::RecordAnalysis Analysis;
  packetroutines::RecordContext Context;
  packetroutines::Worksheets Sheets;
  packetroutines::TextWriter TextWriter;
  packetroutines::WorksheetWriter SheetWriter;
  packetroutines::ComtradeWriter ComtradeWriter;
  packetroutines::DiskReport DiskReport;
  packetroutines::RecordWriters Writers;
  packetroutines::SampleWriter Samples;
  RecordingSession Session;
  TriggerBlock Trigger;

 private:
  void WriteRecordBlock(std::int16_t stream) override { Samples.WriteRecordBlock(stream); }
  void ResetProgress();
  void ShowPaths();
  void RefusePath(const platform::Routine& run);

  forms::Main& main_;
  config::Configuration& config_;
  packetroutines::Acquisition& acquisition_;
  RecorderServices services_;
};

}  // namespace subroutines
