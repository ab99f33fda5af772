#include "report/report_print.h"

#include <cstddef>

#include "base/shown_text.h"
#include "config/program_facts.h"

namespace subroutines {

namespace {

// Millimetres.
constexpr double Left = 15;
constexpr double ValueLeft = 80;
constexpr double CaptionTop = 10;
constexpr double HeadingTop = 18;
constexpr double FirstRowTop = 40;
constexpr double RowPitch = 7;
constexpr double FooterTop = 250;

/// The rows that have a title beside their value, and those that the page has room for.
constexpr std::size_t TitledRows = 15;
constexpr std::size_t PrintedRows = 21;

}  // namespace

ReportPrint::ReportPrint(const ReportView& view, forms::ReportControls& report,
                         platform::QuietLine& line, platform::Dialogs& dialogs,
                         const PrintParts& parts)
    : view_(view), report_(report), dialogs_(dialogs), out_(parts, line, "report") {
  report_.Command4.Click = [this] { Command4_Click(); };
}

void ReportPrint::Command4_Click() {
  out_.SelectPrinter();
  const std::string reason = view_.HeadOfOther();
  if (!reason.empty() && !Wanted(reason)) return;
  out_.Print(platform::PageOrientation::Portrait, [this] { Page(); });
}

bool ReportPrint::Wanted(const std::string& reason) {
  const std::string gap = std::string(platform::Crlf) + platform::Crlf;
  return dialogs_.Show({"Attention",
                        platform::Escaped(reason) + gap +
                            "On the page its addresses and lengths would stand above the ID, the "
                            "counter and the bytes of an earlier frame." +
                            gap + "Print the page all the same?",
                        platform::Icon::Exclamation, platform::Buttons::YesNo}) ==
         platform::Answer::Yes;
}

void ReportPrint::Page() {
  platform::PrintSurface& surface = out_.Surface();
  surface.FontBold(false);
  out_.At(Left, CaptionTop);
  surface.PrintLine(config::ProgramCaption());
  surface.FontBold(true);
  out_.At(Left, HeadingTop);
  surface.Print("Report of received sample set; ");
  surface.PrintLine(" dated " + out_.Today('.'));
  for (std::size_t i = 0; i < PrintedRows; ++i) {
    const double top = FirstRowTop + RowPitch * static_cast<double>(i);
    out_.At(Left, top);
    if (i < TitledRows) {
      surface.Print(report_.Label7[i].Caption);
      out_.At(ValueLeft, top);
    } else {
      surface.FontName("Courier New");
    }
    surface.PrintLine(ValueOf(i));
  }
  // The footer keeps the font of the rows above it.
  surface.FontBold(false);
  out_.At(Left, FooterTop);
  surface.PrintLine(std::string(config::ProgramName) + " " + config::ProgramVersion +
                    "; Harlengard GmbH & Co. KG; dated " + out_.Today('-'));
}

std::string ReportPrint::ValueOf(std::size_t row) const {
  const std::string& value = report_.Label8[row].Caption;
  return row < forms::report_row::FirstDump ? platform::Escaped(value) : platform::Blanked(value);
}

}  // namespace subroutines
