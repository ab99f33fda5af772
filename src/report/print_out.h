#pragma once

#include <functional>
#include <string>

#include "base/program.h"
#include "forms/setup_controls.h"
#include "platform/controls/quiet_line.h"
#include "platform/services/calendar.h"
#include "platform/services/print_surface.h"
#include "platform/services/system_services.h"
#include "report/print_notice.h"

namespace subroutines {

/// What a print-out takes of the platform and of the form: the printers with the list that chooses
/// one, the surface, the date, and the notice that tells where a page went.
struct PrintParts {
  forms::SetupControls& Setup;
  PrintNotice& Notice;
  platform::Printers& Printers;
  platform::PrintSurface& Surface;
  const platform::Calendar& Calendar;
  platform::Program& Program;
};

/// What both print-outs do round their page.
class PrintOut {
 public:
  /// `what` is printed, such as "report"; `line` says so where it fails.
  PrintOut(const PrintParts& parts, platform::QuietLine& line, std::string what);

  /// Makes the printer of the list the current one. Failure 484 where there is none.
  void SelectPrinter();
  /// Prints a page, landscape or portrait, and ends it. A page that fails is left without a box:
  /// no end of the document is sent, the mode of colours stays, and the quiet line says why. A page
  /// that the printer's queue refuses later ends the same way.
  void Print(platform::PageOrientation orientation, const std::function<void()>& page);
  /// Takes back what the quiet line says about an older page. What stood there before comes back.
  void Forget();
  /// While it is taken, a refusal that comes late leaves the line alone.
  void TakeLine(bool taken) { lineTaken_ = taken; }

  /// The present day as "dd.MMM.yyyy", with `sign` between its parts.
  std::string Today(char sign) const;
  void At(double x, double y);

  platform::PrintSurface& Surface() { return parts_.Surface; }

 private:
  void Take(const platform::SentPage& sent, const std::string& printer);
  void SayFailed(const std::string& why);

  PrintParts parts_;
  platform::QuietLine& line_;
  std::string what_;
  /// What this class has written to the line, and the words of another that are part of it.
  std::string said_;
  std::string kept_;
  bool lineTaken_ = false;
  /// The page is being handed over.
  bool sending_ = false;
};

}  // namespace subroutines
