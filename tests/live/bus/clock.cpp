#include "clock.h"

#include <sys/prctl.h>

#include <algorithm>

namespace bus {

namespace {

constexpr std::int64_t NsASecond = 1'000'000'000;
/// Samples that are made up for after a hold-up.
constexpr std::int64_t LongestCatchUp = 160;

std::int64_t Now() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec * NsASecond + now.tv_nsec;
}

}  // namespace

SampleClock::SampleClock(int rate) : rate_(rate), begin_(Now()) {
  // The system may otherwise wake a sleeper 50 us late, a fifth of the time between two samples.
  prctl(PR_SET_TIMERSLACK, 1UL);
}

std::int64_t SampleClock::TimeOf(std::int64_t sample) const {
  return begin_ + sample / rate_ * NsASecond + sample % rate_ * NsASecond / rate_;
}

std::int64_t SampleClock::Passed() const {
  const std::int64_t passed = Now() - begin_;
  return passed / NsASecond * rate_ + passed % NsASecond * rate_ / NsASecond + 1;
}

std::int64_t SampleClock::TooLate(std::int64_t sent) const {
  return std::max<std::int64_t>(0, Passed() - sent - LongestCatchUp);
}

void SampleClock::SetBack(std::int64_t samples) {
  begin_ += samples * NsASecond / rate_;
}

void SampleClock::WaitFor(std::int64_t sample) const {
  const std::int64_t time = TimeOf(sample);
  const timespec until{time / NsASecond, time % NsASecond};
  clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
}

void SampleClock::WaitWithin(std::int64_t sample, std::int64_t us) const {
  const std::int64_t time = TimeOf(sample) + us * 1000;
  while (Now() < time) {
  }
}

}  // namespace bus
