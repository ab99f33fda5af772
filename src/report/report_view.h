#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/program.h"
#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "capture/view.h"
#include "config/station_choice.h"
#include "forms/report_controls.h"
#include "forms/shared_controls.h"
#include "platform/services/calendar.h"
#include "platform/services/code_page.h"
#include "platform/services/event_queue.h"
#include "report/frame_structure.h"
#include "report/report_analysis.h"
#include "report/station_wish.h"

namespace subroutines {

/// What the Report view works with.
struct ReportParts {
  forms::ReportControls& Report;
  forms::SharedControls& Shared;
  StationChoice& Stations;
  const packetroutines::RunFields& State;
  packetroutines::CaptureSession& Capture;
  packetroutines::ReportAnalysis& Analysis;
  const platform::CodePage& Code;
  const platform::Calendar& Calendar;
};

/// The Report view: its rows, and a run that asks the bus for one frame. Its quiet line says where
/// a run ended without a report, and why, and why rows are hidden for as long as they are.
class ReportView : public packetroutines::View, public packetroutines::ReportConsumer {
 public:
  ReportView(const ReportParts& parts, platform::EventQueue& events, platform::Program& program);

  std::int16_t Tab() const override { return forms::tab::Report; }
  /// Empties the rows, before the view is entered for the first time.
  void Load() override;
  void Show(const platform::Routine& run) override;
  void Hide() override;
  /// The view is entered: builds the rows, once in the life of the program.
  void ReportLayout();
  /// Reads a frame into the rows; the result is its station ID.
  std::string ReportAnalyse(const packetroutines::PacketBytes& bytes) override;
  void FrameReported(const platform::CapturedFrame& frame) override;
  void ReportEnded() override;
  /// Why the first rows are hidden: they are of a frame that was not accepted, the others of an
  /// earlier one. Empty where all belong together.
  std::string HeadOfOther() const;

 private:
  void Command2_ValueChanged();
  void Rest();
  /// The station that a run asks for; empty where none is known.
  std::string AskedStation() const;
  /// Why the frame of this station is not the report that was asked for.
  std::string WhyRefused(const std::string& id, const packetroutines::PacketBytes& bytes);
  void LayRow(std::size_t row, std::int32_t place);

  ReportParts parts_;
  platform::QuietLine& line_;
  platform::EventQueue& events_;
  platform::Program& program_;
  packetroutines::StationWish wish_;
  FrameStructure structure_;
  bool layoutDone_ = false;
  /// A run was begun, and no frame has come since.
  bool running_ = false;
  /// Why the frame of a run was not accepted, as long as its head is what the rows hold.
  std::string refusal_;
  /// Whose head the stream finder has left in the rows, where it was not shown.
  std::optional<std::string> finderMet_;
};

}  // namespace subroutines
