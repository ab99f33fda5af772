#pragma once

#include <cstdint>

#include "capture/record_rings.h"
#include "recorder/reading/gap_search.h"

namespace packetroutines {

/// The samples of a text file of one stream, followed while they are stored: where a recording goes
/// on in another file nobody has the time to read the one before. It is as good as the file as long
/// as each ring was stored in it.
class FollowedLog {
 public:
  /// A file begins.
  void Begin() { *this = {}; }
  /// The ring of the first stream stands in the file.
  void Take(const RecordRings& rings);
  /// A ring does not stand in it, so that the file alone knows what it holds.
  void Lose() { lost_ = true; }

  /// False where the file has to be read.
  bool Known() const { return !lost_; }
  /// What was found in the samples; failure 9 or 6 where they are none that a log is made of.
  GapSearch Gaps() const;

 private:
  GapSearch gaps_;
  bool lost_ = false;
  /// The failure of a sample; 0 for none.
  std::int32_t unfit_ = 0;
};

}  // namespace packetroutines
