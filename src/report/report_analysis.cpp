#include "report/report_analysis.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/failure.h"
#include "base/hex_text.h"
#include "base/number_text.h"

namespace packetroutines {

using platform::Failure;
using platform::Flow;
using platform::HexPairValue;
using platform::Verdict;

namespace row = forms::report_row;

namespace {

constexpr std::size_t LineBytes = 16;
constexpr std::size_t DigitsOfByte = 2;
/// Two digits and a blank.
constexpr std::size_t GroupWidth = 3;
/// Bytes below this one print as a point.
constexpr std::int16_t FirstPrinted = 31;
constexpr char Point = '.';

constexpr std::array<const char*, 3> SynchronisationTexts = {
    "value=0; not synchronized by an external clock", "value=1; synchronized by a local area clock",
    "value=2; synchronized by a global area clock"};

char Upper(char digit) {
  return digit >= 'a' && digit <= 'z' ? static_cast<char>(digit - 'a' + 'A') : digit;
}

}  // namespace

std::string HexLineText(std::string_view line, const platform::CodePage& code) {
  std::string characters;
  for (std::size_t at = 0; at < line.size(); at += GroupWidth) {
    std::string digits(line.substr(at, DigitsOfByte));
    std::transform(digits.begin(), digits.end(), digits.begin(), Upper);
    const std::int16_t value = HexPairValue(digits);
    characters += value < FirstPrinted ? Point : static_cast<char>(value);
    characters += ' ';
  }
  return code.ToUtf8(characters);
}

ReportAnalysis::ReportAnalysis(forms::ReportControls& report, const forms::SharedControls& shared,
                               const config::Settings& settings, const config::RunSettings& present,
                               const platform::CodePage& code, const platform::Services& services)
    : report_(report),
      shared_(shared),
      settings_(settings),
      present_(present),
      code_(code),
      services_(services),
      run_(services.Program, [this](const Failure& failure, int) { return OnFailure(failure); }) {}

Verdict ReportAnalysis::OnFailure(const Failure& failure) {
  if (failure.Number() == platform::failure::NoSuchControl) return Verdict::SkipStep;
  services_.Dialogs.Show({"unknown...",
                          std::string("unknown error. ") + platform::Crlf + failure.Text() +
                              platform::Crlf + "this happens while generating a report-analyse",
                          platform::Icon::Critical});
  return Verdict::EndProgram;
}

const std::string& ReportAnalysis::ChosenStation() const {
  const auto& stations = shared_.Option3;
  const bool first = stations[forms::station::Report].Value;
  return stations[first ? forms::station::Report : forms::station::Report + 1].Caption;
}

bool ReportAnalysis::ReportAnalyse(const PacketBytes& bytes, std::string& id) {
  const Flow flow = run_(
      [&] {
        ShowHead(false);
        searched_.Take(bytes);
      },
      [&] { WriteHead(); }, [&] { WriteLength(row::Sequence, searched_.SequenceLength()); },
      [&] { WriteLength(row::FirstAsdu, searched_.FirstAsduLength()); },
      [&] {
        id += code_.ToUtf8(searched_.StationId());
        const bool other = present_.StreamCount > 1 && ChosenStation() != id;
        return other ? Flow::Leave : Flow::Next;
      },
      [&] { report_.Label8[row::StationId].Caption = id; },
      [&] {
        ShowHead(true);
        WriteFields();
      });
  return flow == Flow::Next;
}

void ReportAnalysis::WriteFields() {
  run_(
      [&] {
        report_.Label8[row::SampleCount].Caption =
            platform::NumberText::General(searched_.SampleCount());
      },
      [&] { WriteSynchronisation(searched_.Synchronisation()); });
  for (std::size_t line = 0; line < row::DumpCount; ++line) {
    run_([&] { WriteDumpLine(line); });
  }
}

void ReportAnalysis::ShowHead(bool visible) {
  for (std::size_t i = row::Filter; i < row::StationId; ++i) report_.Label8[i].Visible = visible;
}

void ReportAnalysis::WriteHead() {
  auto& values = report_.Label8;
  const FrameDigits& digits = searched_.Digits();
  values[row::Filter].Caption = settings_.FilterString + " / " + settings_.FilterContent[0] +
                                " / " + settings_.FilterContent[1];
  values[row::Destination].Caption = digits.Pairs(1, 6);
  values[row::Source].Caption = digits.Pairs(7, 6);
  values[row::Ethertype].Caption = "0x" + digits.Pairs(13, 1) + digits.Pairs(14, 1);
  values[row::AppId].Caption = "0x" + digits.Pairs(15, 1) + digits.Pairs(16, 1);
}

void ReportAnalysis::WriteLength(std::size_t row, std::string_view digits) {
  report_.Label8[row].Caption = "lenght: " + std::string(digits);
}

void ReportAnalysis::WriteSynchronisation(std::size_t value) {
  if (value >= SynchronisationTexts.size()) return;
  report_.Label8[row::Synchronisation].Caption = SynchronisationTexts[value];
}

void ReportAnalysis::WriteDumpLine(std::size_t line) {
  std::string dump;
  for (std::size_t j = 0; j < LineBytes; ++j) {
    const std::string_view digits =
        searched_.Digits().Pair((line * LineBytes + j) * DigitsOfByte + 1);
    dump += digits.empty() ? "00" : digits;
    dump += ' ';
  }
  platform::Label& value = report_.Label8[row::FirstDump + line];
  value.Visible = false;
  // The line reaches over both columns.
  value.Left = report_.Label7[row::FirstDump + line].Left.Get();
  value.Width = report_.Shape3.Width.Get();
  value.Caption = std::to_string(line) + "0: " + dump + HexLineText(dump, code_);
  value.Visible = true;
}

}  // namespace packetroutines
