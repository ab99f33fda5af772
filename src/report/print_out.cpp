#include "report/print_out.h"

#include <utility>

#include "platform/failure.h"
#include "platform/trap.h"

namespace subroutines {

using platform::Failure;
using platform::Verdict;

namespace {

/// The panel of the status bar that names the printer.
constexpr std::size_t PrinterPanel = 1;

std::string TwoDigits(std::int32_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

PrintOut::PrintOut(const PrintParts& parts, platform::QuietLine& line, std::string what)
    : parts_(parts), line_(line), what_(std::move(what)) {}

void PrintOut::SelectPrinter() {
  parts_.Printers.MakeCurrent(parts_.Setup.Combo2.ListIndex);
}

void PrintOut::Print(platform::PageOrientation orientation, const std::function<void()>& page) {
  Forget();
  platform::PrintSurface& surface = parts_.Surface;
  std::string file;
  platform::RunSteps(
      parts_.Program,
      [this](const Failure& failure) {
        said_ = "The " + what_ + " could not be printed: " + failure.Text() + ".";
        line_.Say(said_);
        return Verdict::LeaveRoutine;
      },
      [&] {
        surface.Orientation(orientation);
        surface.Colours(platform::ColourMode::Colour);
        surface.DocumentName("SV " + what_);
        surface.FontName("Verdana");
        surface.FontSize(10);
        surface.FontUnderline(false);
        surface.ForeColor({});
      },
      [&] { page(); }, [&] { file = surface.EndDoc(); },
      [&] { surface.Colours(platform::ColourMode::Monochrome); },
      [&] {
        if (!file.empty())
          parts_.Window.StatusBar1.Panels[PrinterPanel].Text = "Printed to " + file;
      });
}

void PrintOut::Forget() {
  // What another has to say stays.
  if (!said_.empty() && line_.Caption == said_) line_.Say({});
  said_.clear();
}

std::string PrintOut::Today(char sign) const {
  const platform::LocalTime today = parts_.Calendar.Now();
  return TwoDigits(today.Day) + sign + parts_.Calendar.MonthName(today.Month) + sign +
         std::to_string(today.Year);
}

void PrintOut::At(double x, double y) {
  parts_.Surface.CurrentX(x);
  parts_.Surface.CurrentY(y);
}

}  // namespace subroutines
