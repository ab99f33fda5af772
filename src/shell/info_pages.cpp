#include "shell/info_pages.h"

#include <array>
#include <string_view>

#include "base/failure.h"
#include "base/trap.h"
#include "config/program_facts.h"
#include "platform/rich_row.h"
#include "platform/services/absent.h"
#include "shell/history.h"

namespace formroutines {

using platform::Failure;
using platform::Verdict;

namespace {

constexpr std::string_view EmptyRow = "Verdana|10|normal| ";
constexpr std::size_t RowOfFirstStep = 6;
constexpr platform::RowPlace FirstPlace{.Left = 600, .Top = 1300, .Width = 14000};
constexpr std::size_t PanelCharacters = 60;

constexpr std::array<std::string_view, 20> PageRows = {
    "Verdana|18|fett|Vornik",
    EmptyRow,
    "Verdana|10|fettunderline|This program provides a simple interface to monitor the IEC 61850 SV",
    EmptyRow,
    EmptyRow,
    "Verdana|10|normalunderline|Short description:",
    "Verdana|10|normal|- select 'Setup' for configuration",
    "Verdana|10|normal|- select 'Values' for direct view on the values",
    "Verdana|10|normal|- select 'Phases' for observing phase angles",
    "Verdana|10|normal|- select 'Waveforms' for looking on the waveforms of the signals",
    "Verdana|10|normal|- select 'Recorder' for long time running value recording on hard disk up "
    "to "
    "two sources",
    "Verdana|10|normal|- select 'Report' for a brief report of the filtered UDP packet acc. IEC "
    "61850.9.2LE (SV)",
    EmptyRow,
    "Verdana|10|normal|- select 'Exit' to exit this program",
    EmptyRow,
    EmptyRow,
    EmptyRow,
    EmptyRow,
    "Verdana|10|fett|Harlengard GmbH && Co. KG",
    "Verdana|10|normal|See every sample. Trust every number.",
};

constexpr std::string_view FirstSetupRow =
    "Verdana|10|fett|- select first 'Setup' for configuration of network adapters and look for SV "
    "ethernet streams";

/// The first `count` characters of a UTF-8 text.
std::string FirstCharacters(const std::string& text, std::size_t count) {
  std::size_t bytes = 0;
  for (; bytes < text.size(); ++bytes) {
    const bool begins = (static_cast<unsigned char>(text[bytes]) & 0xC0U) != 0x80U;
    if (begins && count-- == 0) break;
  }
  return text.substr(0, bytes);
}

}  // namespace

InfoPages::InfoPages(const InfoParts& parts, forms::Revisionhistory& history,
                     config::Configuration& config, const Platform& platform)
    : parts_(parts),
      history_(history),
      settings_(config.Settings),
      present_(config.Present),
      numbers_(platform.Numbers),
      printers_(platform::OrNone(platform.Printers)),
      links_(platform.Links),
      program_(platform.Program) {
  config.Stored.Status = static_cast<subroutines::StatusUser&>(*this);
  parts_.Shared.Label3[forms::side_caption::Support].Caption = config::SupportAddress;
  parts_.Page.Label4.Click = [this] { OpenHistory(); };
  for (platform::Label& caption : parts_.Shared.Label3) {
    // The handler belongs to the whole array, whichever of its captions is clicked.
    caption.Click = [this] {
      links_.Open(
          std::string("mailto:") + config::SupportAddress +
          "?subject=Support question for Vornik IEC61850.9.2LE version: " + config::ProgramVersion);
    };
  }
  parts_.Window.Picture2.Click = [this] { links_.Open(config::WebSite); };
  history_.cmdOK.Click = [this] { history_.Window.Unload(); };
}

void InfoPages::ShowProgramNames() {
  parts_.Window.Window.Caption = config::ProgramCaption();
  parts_.Setup.Label13.Caption = std::string(config::ProgramName) + " " + config::ProgramVersion;
}

void InfoPages::EmptyErrorCount() {
  parts_.Window.StatusBar1.Panels[forms::status_panel::Errors].Text = std::string();
}

void InfoPages::InfoPage() {
  std::array<std::string_view, PageRows.size()> lines = PageRows;
  if (!settings_.SetupDone) lines[RowOfFirstStep] = FirstSetupRow;
  parts_.Window.TabStrip1.SelectedTab = forms::tab::Info;
  ShowRows(parts_.Page.Label1, lines, FirstPlace);
}

void InfoPages::OpenHistory() {
  history_.Text1.Text = history::HistoryText();
  history_.Window.OpenModal();
}

void InfoPages::StatusUpdate() {
  auto& panels = parts_.Window.StatusBar1.Panels;
  platform::RunSteps(
      program_,
      [&](const Failure& failure) {
        if (failure.Number() == platform::failure::NoPrinter) {
          panels[forms::status_panel::Printer].Text = std::string("Standard printer: ") + " ";
        }
        return Verdict::SkipStep;
      },
      [&] {
        panels[forms::status_panel::Adapter].Text =
            FirstCharacters(parts_.Setup.Combo1.Text(), PanelCharacters);
      },
      [&] {
        panels[forms::status_panel::Printer].Text =
            "Standard printer: " + printers_.Current() + " ";
      },
      [&] {
        panels[forms::status_panel::Samples].Text =
            "RMS base: " + numbers_.General(present_.BaseSamples) + " samples";
      });
}

}  // namespace formroutines
