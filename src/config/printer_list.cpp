#include "config/printer_list.h"

#include <string>
#include <vector>

#include "base/failure.h"
#include "base/number_text.h"
#include "base/trap.h"

namespace subroutines {

using platform::Failure;
using platform::Verdict;

PrinterChoices::PrinterChoices(forms::SetupControls& setup, forms::WaveformsControls& scope,
                               config::Settings& settings, StoredSettings& stored,
                               platform::Printers& printers, platform::Dialogs& dialogs,
                               platform::Program& program)
    : setup_(setup),
      scope_(scope),
      settings_(settings),
      stored_(stored),
      printers_(printers),
      dialogs_(dialogs),
      program_(program) {
  setup_.Combo2.Click = [this] { Combo2_Click(); };
}

void PrinterChoices::PrinterList(bool markDefault, bool selectDefault) {
  std::string current;
  platform::RunSteps(
      program_,
      [this](const Failure& failure) {
        if (failure.Number() != platform::failure::NoPrinter) return Verdict::EndProgram;
        dialogs_.Show({"Attention",
                       std::string("There is no printer available") + platform::Crlf +
                           "Therefore printing is disabled.",
                       platform::Icon::None});
        scope_.Command1.Enabled = false;
        return Verdict::LeaveRoutine;
      },
      [&] { current = printers_.Current(); }, [&] { Fill(current, markDefault, selectDefault); });
}

void PrinterChoices::Fill(const std::string& current, bool markDefault, bool selectDefault) {
  const std::vector<std::string> names = printers_.Names();
  std::vector<std::string> entries;
  std::int32_t noted = -1;
  for (const std::string& name : names) {
    const bool isCurrent = (markDefault || selectDefault) && name == current && noted < 0;
    if (isCurrent) noted = static_cast<std::int32_t>(entries.size());
    entries.push_back(isCurrent && markDefault ? name + "*" : name);
  }
  setup_.Combo2.Clear();
  setup_.Combo2.List = entries;
  // Showing the current printer is no choice of the user: the click that a selection raises would
  // store its place, and 0 in the store is what leaves the choice to the system.
  if (selectDefault && noted >= 0) setup_.Combo2.ListIndex.Store(noted);
}

void PrinterChoices::SelectStored() {
  // 0 in the store is the choice of the system, whatever stands first in the list.
  if (settings_.PrinterChoice > 0 && settings_.PrinterChoice < setup_.Combo2.ListCount()) {
    setup_.Combo2.ListIndex = settings_.PrinterChoice;
  }
}

void PrinterChoices::Combo2_Click() {
  settings_.PrinterChoice = platform::Narrow<std::int16_t>(setup_.Combo2.ListIndex.Get());
  printers_.MakeCurrent(setup_.Combo2.ListIndex);
  stored_.SaveSettings();
}

}  // namespace subroutines
