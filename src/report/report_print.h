#pragma once

#include "forms/report_controls.h"
#include "report/print_out.h"

namespace subroutines {

/// Puts the rows of the Report view on a portrait page, as they stand on the screen. The page has
/// room for the rows 0 to 20: the last two lines of the dump are not on it.
class ReportPrint {
 public:
  ReportPrint(forms::ReportControls& report, platform::QuietLine& line, const PrintParts& parts);

 private:
  void Command4_Click();
  void Page();

  forms::ReportControls& report_;
  PrintOut out_;
};

}  // namespace subroutines
