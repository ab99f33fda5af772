#include "recorder/reading/followed_log.h"

#include "base/failure.h"

namespace packetroutines {

void FollowedLog::Take(const RecordRings& rings) {
  if (lost_ || unfit_ != 0) return;
  try {
    for (std::int16_t i = 0; i < RecordRings::Cells; ++i) gaps_.Line(rings.RecordCount(i));
  } catch (const platform::Failure& met) {
    // It belongs to the log, and not to the ring.
    unfit_ = met.Number();
  }
}

GapSearch FollowedLog::Gaps() const {
  if (unfit_ != 0) throw platform::Failure(unfit_);
  return gaps_;
}

}  // namespace packetroutines
