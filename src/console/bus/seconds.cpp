#include "console/bus/seconds.h"

#include <utility>

namespace console {

Seconds::Seconds(const platform::Clock& clock, std::function<void(Time)> over)
    : clock_(clock), over_(std::move(over)), began_(clock.Now()) {}

void Seconds::Begin(Time at) {
  end_ = at + Length;
  began_ = clock_.Now();
}

void Seconds::EndUpTo(Time arrived) {
  while (arrived >= *end_) {
    const Time end = *end_;
    over_(end);
    Begin(arrived - end > LongestHole ? arrived : end);
  }
}

void Seconds::Rest(Time now) {
  if (clock_.Now() - began_ < Length + Grace) return;
  const Time end = end_.value_or(now);
  over_(end);
  end_ = end + Length;
  began_ += Length;
}

}  // namespace console
