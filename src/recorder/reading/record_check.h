#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "base/failure.h"
#include "forms/recorder_controls.h"
#include "recorder/reading/analysis_progress.h"
#include "recorder/reading/check_offer.h"
#include "recorder/reading/reading_context.h"
#include "recorder/reading/sample_search.h"
#include "recorder/reading/unchecked_recording.h"

namespace packetroutines {

/// Checks a text recording that has no log, long after its end if need be: the newest one in the
/// folder for data is offered on the page, and each of its files gets a log of its own beside it,
/// in the form of the log of a stop.
///
/// What only the stop could know is told as not known. A file that cannot be looked through is told
/// on the line, and is not offered again until the program starts anew.
class RecordCheck : public CheckOffer {
 public:
  RecordCheck(const ReadingContext& context, forms::RecorderControls& recorder);

  void Offer() override;
  void Withdraw() override;

 private:
  /// What a check has found.
  struct Findings {
    std::vector<std::int32_t> Lost;
    /// Sentences about files that have got no log.
    std::string Trouble;
  };

  void Pressed();
  void OpenFiles();
  void Check();
  /// Checks the file of this number.
  void CheckFile(std::size_t file, Findings& findings);
  SearchedSamples Search(std::size_t file);
  void WriteLog(const std::string& name, const SearchedSamples& samples);
  void Tell(const Findings& findings);

  ReadingContext context_;
  forms::RecorderControls& recorder_;
  /// What is offered; without a file there is nothing to check.
  UncheckedRecording offered_;
  /// What the line names: the files that are offered, or the logs of a check.
  std::vector<std::string> opened_;
  /// Files that cannot be looked through.
  std::set<std::string> refused_;
};

}  // namespace packetroutines
