#include "console/comtrade/rate_finder.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "sv/standard_rates.h"

namespace console {

namespace {

using Time = RateFinder::Time;

/// The round that a counter is expected to have before it shows its own.
constexpr std::uint32_t UsualRound = 4000;
/// Counters have 16 bits.
constexpr double MostRate = 65'536;
/// Every counter begins anew within a second; one that has shown a round shows it again in another.
constexpr Time LongestWait{1'500'000};
constexpr Time LongestWaitForSecond{2'500'000};
constexpr Time WholeRound{1'000'000};
/// A shorter run is one of a sender that began anew, and swapped samples at the seam.
constexpr std::uint32_t ShortestRound = 64;
/// The next round begins at once: within so many samples.
constexpr double LongestSeam = 40;
/// A pace is told from so much, to so much of itself where a standard lists one beside it.
constexpr Time ShortestLook{10'000};
constexpr Time ShortestOwnLook{200'000};
constexpr double PaceError = 0.03;

}  // namespace

void RateFinder::BeginAnew() {
  believesSender_ = false;
  found_.reset();
  once_.reset();
  begun_ = false;
  greatest_ = 0;
  greatestSince_ = 0;
}

void RateFinder::Take(const std::vector<sv::Asdu>& asdus, Time arrived) {
  const std::uint32_t counter = asdus.front().SmpCnt.value_or(0);
  if (!begun_ || asdus.size() != asdus_) {
    asdus_ = asdus.size();
    track_.Begin(UsualRound, static_cast<std::uint32_t>(asdus_));
    before_ = track_.Totals();
    begunAt_ = arrived;
    last_ = counter;
    begun_ = true;
  }
  if (!found_ && believesSender_) found_ = Told(asdus.front());
  Time gone = arrived - (track_.Totals().Samples > before_.Samples ? track_.Last() : arrived);
  for (const sv::Asdu& asdu : asdus) {
    const std::uint32_t next = asdu.SmpCnt.value_or(0);
    if (next == 0) TakeEnd(last_ + 1, gone);
    if (next <= last_ + ShortestRound && next + ShortestRound >= last_) {
      greatest_ = std::max(greatest_, next);
      greatestSince_ = std::max(greatestSince_, next);
    }
    last_ = next;
    gone = Time{0};
  }
  track_.Take(counter, arrived);
  const Time wait = once_ ? LongestWaitForSecond : LongestWait;
  if (!found_ && arrived - begunAt_ >= wait) found_ = Guess();
}

void RateFinder::TakeEnd(std::uint32_t round, Time gone) {
  const double between = std::chrono::duration<double>(gone).count() * round;
  if (round < ShortestRound || between > LongestSeam) return;
  const std::uint32_t greatest = std::exchange(greatestSince_, 0);
  const bool standard = sv::IsStandardRate(round);
  // The last sample was swapped with the first one of the next round.
  if (!standard && round <= greatest) return;
  if (standard || round == once_) found_ = round;
  once_ = round;
}

std::optional<std::uint32_t> RateFinder::Told(const sv::Asdu& asdu) const {
  constexpr std::uint16_t SamplesPerPeriod = 0;
  constexpr std::uint16_t SamplesPerSecond = 1;
  if (!asdu.SmpRate || !asdu.SmpMod) return std::nullopt;
  double rate = 0;
  if (*asdu.SmpMod == SamplesPerSecond) rate = *asdu.SmpRate;
  if (*asdu.SmpMod == SamplesPerPeriod) rate = *asdu.SmpRate * frequency_.value_or(0);
  if (rate <= asdu.SmpCnt.value_or(0) || rate < 1 || rate > MostRate) return std::nullopt;
  return static_cast<std::uint32_t>(std::lround(rate));
}

std::optional<double> RateFinder::Pace() const {
  const Time lasted = track_.Last() - begunAt_;
  const sv::TrackTotals met = track_.Totals() - before_;
  if (lasted < ShortestLook) return std::nullopt;
  const double sent =
      static_cast<double>(met.Samples + met.Missing) - static_cast<double>(met.Doubled + asdus_);
  return sent / std::chrono::duration<double>(lasted).count();
}

std::uint32_t RateFinder::Guess() const {
  if (found_) return *found_;
  // A stream that was late when it was met seems to go faster than it does. One that went a whole
  // round has shown how far its counter goes, or a hole at the end has.
  const bool wentRound = track_.Last() - begunAt_ >= WholeRound;
  const std::uint32_t most = wentRound ? std::max(sv::RoundFor(greatest_), track_.Round()) : ~0U;
  const auto holds = [&](std::uint32_t rate) { return rate > greatest_ && rate <= most; };
  if (const auto rate = track_.Rate(); rate && holds(*rate)) return *rate;
  if (once_ && holds(*once_)) return *once_;
  if (const std::optional<double> pace = Pace()) {
    for (const std::uint32_t standard : sv::StandardRates) {
      if (std::abs(*pace - standard) < PaceError * standard && holds(standard)) return standard;
    }
    const auto own = static_cast<std::uint32_t>(std::lround(std::clamp(*pace, 1.0, MostRate)));
    if (track_.Last() - begunAt_ >= ShortestOwnLook && holds(own)) return own;
  }
  return sv::RoundFor(std::max(greatest_, last_));
}

}  // namespace console
