#include "console/comtrade/sample_order.h"

#include <algorithm>

namespace console {

void SampleOrder::Take(std::int64_t counter, std::span<const double> stored) {
  if (latest_ < 0) {
    rows_.resize(stored.size() * static_cast<std::size_t>(Waiting));
    counter_ = (counter + round_ - 1) % round_;
  }
  const std::int64_t ahead = (counter - counter_ + round_) % round_;
  const std::int64_t back = (round_ - ahead) % round_;
  if (latest_ >= 0 && back < std::min<std::int64_t>(Waiting, round_ / 2)) {
    TakeBack(latest_ - back, stored);
    return;
  }
  latest_ += ahead;
  counter_ = counter;
  HandOnBefore(latest_ - Waiting + 1);
  Keep(latest_, stored);
}

void SampleOrder::TakeBack(std::int64_t position, std::span<const double> stored) {
  if (position < 0) {
    ++beforeFirst_;
  } else if (here_[SlotOf(position)]) {
    ++doubled_;
  } else {
    ++late_;
    Keep(position, stored);
  }
}

void SampleOrder::Keep(std::int64_t position, std::span<const double> stored) {
  const std::size_t slot = SlotOf(position);
  std::copy(stored.begin(), stored.end(),
            rows_.begin() + static_cast<std::ptrdiff_t>(slot * stored.size()));
  here_[slot] = true;
}

void SampleOrder::HandOnBefore(std::int64_t position) {
  const std::size_t channels = rows_.size() / static_cast<std::size_t>(Waiting);
  for (; next_ < position; ++next_) {
    const std::size_t slot = SlotOf(next_);
    if (here_[slot]) {
      sink_.Add({rows_.data() + slot * channels, channels});
    } else {
      sink_.AddMissing(1);
      ++missing_;
    }
    here_[slot] = false;
  }
}

void SampleOrder::Finish() {
  HandOnBefore(latest_ + 1);
}

}  // namespace console
