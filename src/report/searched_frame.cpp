#include "report/searched_frame.h"

#include "base/hex_text.h"
#include "base/number_text.h"

namespace packetroutines {

using platform::HexPairValue;

void SearchedFrame::Take(const PacketBytes& bytes) {
  digits_.Take(bytes);
  asduCount_ = digits_.AsduCount();
  stationTag_ = digits_.StationTag(asduCount_);
  counter_ = digits_.Find("82", stationTag_ + 2) + 2;
  synchronisation_ = digits_.Find("85", counter_ + 2) + 2;
}

std::int32_t SearchedFrame::SampleCount() const {
  return HexPairValue(digits_.Pair(counter_ + 2)) * 256 + HexPairValue(digits_.Pair(counter_ + 4));
}

std::size_t SearchedFrame::Synchronisation() const {
  return static_cast<std::size_t>(
      platform::NumberText::Leading(digits_.Pair(synchronisation_ + 2)));
}

}  // namespace packetroutines
