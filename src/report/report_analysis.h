#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "capture/packet_bytes.h"
#include "config/settings.h"
#include "forms/report_controls.h"
#include "forms/shared_controls.h"
#include "platform/services/code_page.h"
#include "platform/services/services.h"
#include "platform/trap.h"

namespace packetroutines {

/// The characters of a dump line's bytes, each with a blank behind it. A byte below 31 is a point;
/// 31 itself is not.
std::string HexLineText(std::string_view line, const platform::CodePage& code);

/// Reads one frame into the rows of the Report view. It is a quick look and no validation: the
/// frame becomes one text of hexadecimal digits, and the few tags of interest are searched in it by
/// their digits, wherever these stand. What is not found yields texts without a meaning, and never
/// a failure. A failure of another kind ends the program with a box; a row that the form has not is
/// passed over. Rows that a frame does not reach keep what they showed.
class ReportAnalysis {
 public:
  ReportAnalysis(forms::ReportControls& report, const forms::SharedControls& shared,
                 const config::Settings& settings, const config::RunSettings& present,
                 const platform::CodePage& code, const platform::Services& services);

  /// Appends the station ID to `id`. False where there are two streams and the frame is not of the
  /// chosen one: then the rows of the fields stay hidden and the others as they were.
  bool ReportAnalyse(const PacketBytes& bytes, std::string& id);

  /// The station whose frame is asked for, where there are two.
  const std::string& ChosenStation() const;

 private:
  platform::Verdict OnFailure(const platform::Failure& failure);
  void WriteFields(std::size_t position);
  /// The 1-based position of digits at or behind another one; 0 where there are none.
  std::size_t Find(std::string_view digits, std::size_t from) const;
  /// The two digits at a 1-based position; fewer at the end of the text.
  std::string_view Pair(std::size_t position) const;
  /// The digits of `count` bytes from a 1-based byte on, pair by pair.
  std::string Pairs(std::size_t firstByte, std::size_t count) const;

  void BuildHexText(const PacketBytes& bytes);
  void ShowHead(bool visible);
  void WriteHead();
  std::string StationId(std::size_t lengthPosition) const;
  void WriteSynchronisation(std::string_view digits);
  void WriteDumpLine(std::size_t line);

  forms::ReportControls& report_;
  const forms::SharedControls& shared_;
  const config::Settings& settings_;
  const config::RunSettings& present_;
  const platform::CodePage& code_;
  platform::Services services_;
  platform::Routine run_;
  /// The frame, two digits a byte. It keeps its memory from frame to frame.
  std::string hexText_;
};

}  // namespace packetroutines
