#include "report/print_out.h"

#include <utility>

#include "base/failure.h"
#include "base/raised.h"
#include "base/trap.h"

namespace subroutines {

using platform::Failure;
using platform::Verdict;

namespace {

std::string TwoDigits(std::int32_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

/// The last part of a path, whatever separates its parts.
std::string FileName(const std::string& path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace

PrintOut::PrintOut(const PrintParts& parts, platform::QuietLine& line, std::string what)
    : parts_(parts), line_(line), what_(std::move(what)) {}

void PrintOut::SelectPrinter() {
  parts_.Printers.MakeCurrent(parts_.Setup.Combo2.ListIndex);
}

void PrintOut::Print(platform::PageOrientation orientation, const std::function<void()>& page) {
  Forget();
  // A page that is not told of must not look as if it were the older one.
  parts_.Notice.TakeBack();
  platform::PrintSurface& surface = parts_.Surface;
  platform::RunSteps(
      parts_.Program,
      [this](const Failure& failure) {
        SayFailed(failure.Text());
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
      [&] { page(); },
      [&] {
        const std::string printer = parts_.Printers.Current();
        const platform::Raised sending(sending_);
        surface.EndDoc([this, printer](const platform::SentPage& sent) { Take(sent, printer); });
      },
      [&] { surface.Colours(platform::ColourMode::Monochrome); });
}

void PrintOut::Take(const platform::SentPage& sent, const std::string& printer) {
  if (!sent.Refusal.empty()) {
    // The queue may have taken its time. By now the line may have other words, whose owner takes
    // them back; and the page with the line may be left.
    const bool lineIsFree = !lineTaken_ && (line_.Caption.Get().empty() || line_.Caption == said_);
    if (sending_ || lineIsFree) SayFailed(sent.Refusal);
    parts_.Notice.Tell("Refused by " + printer, sent.Refusal);
  } else if (!sent.File.empty()) {
    parts_.Notice.Tell("Printed to " + FileName(sent.File), sent.File);
  } else {
    parts_.Notice.Tell("Sent to " + printer, "The " + what_ + " went to " + printer + ".");
  }
}

void PrintOut::SayFailed(const std::string& why) {
  Forget();
  kept_ = line_.Caption;
  said_ =
      "The " + what_ + " could not be printed: " + why + "." + (kept_.empty() ? "" : " " + kept_);
  line_.Say(said_);
}

void PrintOut::Forget() {
  // What another has to say stays.
  if (!said_.empty() && line_.Caption == said_) line_.Say(kept_);
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
