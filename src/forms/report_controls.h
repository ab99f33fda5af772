#pragma once

#include <array>
#include <cstddef>

#include "platform/controls/buttons.h"
#include "platform/controls/label.h"
#include "platform/controls/text_box.h"

namespace forms {

/// The rows of the report: `Label7` and `Label8`.
namespace report_row {
inline constexpr std::size_t Filter = 0;
inline constexpr std::size_t Destination = 1;
inline constexpr std::size_t Source = 2;
inline constexpr std::size_t Ethertype = 3;
inline constexpr std::size_t AppId = 4;
/// Length of the sequence of ASDUs and of the first of them.
inline constexpr std::size_t Sequence = 5;
inline constexpr std::size_t FirstAsdu = 6;
inline constexpr std::size_t StationId = 7;
inline constexpr std::size_t SampleCount = 8;
inline constexpr std::size_t Synchronisation = 9;
inline constexpr std::size_t Complete = 12;
/// The lines of the dump, sixteen bytes each.
inline constexpr std::size_t FirstDump = 13;
inline constexpr std::size_t DumpCount = 10;
inline constexpr std::size_t Count = FirstDump + DumpCount;
}  // namespace report_row

/// How the texts of the field "By its structure" are told: a line of a field has this sign between
/// its title and its value, one without it is a heading.
namespace report_field {
inline constexpr char ValueSign = '\t';
/// In front of a line that tells what differs from the rows.
inline constexpr const char* DifferenceSign = "! ";
}  // namespace report_field

/// The controls of the Report view: row i is the title `Label7[i]` and the value `Label8[i]`.
struct ReportControls {
  ReportControls();

  platform::CWButton Command2;
  platform::CommandButton Command4;
  /// Heading of the station choice.
  platform::Label sevLabel4;
  /// The frame round the rows.
  platform::Shape Shape3;
  std::array<platform::Label, report_row::Count> Label7;
  std::array<platform::Label, report_row::Count> Label8;
  /// What the frame holds by its structure, line by line, and all its bytes.
  platform::TextBox Structure;
  platform::TextBox StructureDump;
};

}  // namespace forms
