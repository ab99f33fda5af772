#pragma once

#include <string>

#include "forms/report_controls.h"
#include "platform/services/calendar.h"
#include "platform/services/capture_object.h"
#include "platform/services/code_page.h"
#include "report/searched_frame.h"

namespace subroutines {

/// The field "By its structure" of the Report view: what differs from the rows, all that the frame
/// of a run holds by its structure, and its bytes. It stays until the next frame of a run.
class FrameStructure {
 public:
  FrameStructure(forms::ReportControls& report, const platform::CodePage& code,
                 const platform::Calendar& calendar)
      : report_(report), code_(code), calendar_(calendar) {}

  /// There was no frame yet.
  void Load();
  /// `refused` is whose frame it is, where the rows do not tell of it; else empty.
  void Show(const platform::CapturedFrame& frame, const packetroutines::SearchedFrame& searched,
            const std::string& refused);

 private:
  forms::ReportControls& report_;
  const platform::CodePage& code_;
  const platform::Calendar& calendar_;
};

}  // namespace subroutines
