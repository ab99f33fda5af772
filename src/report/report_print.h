#pragma once

#include <string>

#include "forms/report_controls.h"
#include "platform/services/dialogs.h"
#include "report/print_out.h"
#include "report/report_view.h"

namespace subroutines {

/// Puts the rows of the Report view on a portrait page, as they stand on the screen. The page has
/// room for the rows 0 to 20: the last two lines of the dump are not on it. Rows of two senders are
/// printed after a question alone.
class ReportPrint {
 public:
  ReportPrint(const ReportView& view, forms::ReportControls& report, platform::QuietLine& line,
              platform::Dialogs& dialogs, const PrintParts& parts);

 private:
  void Command4_Click();
  /// The user wants the page although its head is of another frame.
  bool Wanted(const std::string& reason);
  void Page();
  /// A row's value as paper can show it.
  std::string ValueOf(std::size_t row) const;

  const ReportView& view_;
  forms::ReportControls& report_;
  platform::Dialogs& dialogs_;
  PrintOut out_;
};

}  // namespace subroutines
