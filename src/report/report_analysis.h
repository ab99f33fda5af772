#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/trap.h"
#include "capture/packet_bytes.h"
#include "config/settings.h"
#include "forms/report_controls.h"
#include "forms/shared_controls.h"
#include "platform/services/code_page.h"
#include "platform/services/services.h"
#include "report/searched_frame.h"

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

  /// What was found in the frame that was read last.
  const SearchedFrame& Searched() const { return searched_; }

  /// The station whose frame is asked for, where there are two.
  const std::string& ChosenStation() const;

 private:
  platform::Verdict OnFailure(const platform::Failure& failure);
  void WriteFields();
  void ShowHead(bool visible);
  void WriteHead();
  void WriteLength(std::size_t row, std::string_view digits);
  void WriteSynchronisation(std::size_t value);
  void WriteDumpLine(std::size_t line);

  forms::ReportControls& report_;
  const forms::SharedControls& shared_;
  const config::Settings& settings_;
  const config::RunSettings& present_;
  const platform::CodePage& code_;
  platform::Services services_;
  platform::Routine run_;
  SearchedFrame searched_;
};

}  // namespace packetroutines
