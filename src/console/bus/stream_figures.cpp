#include "console/bus/stream_figures.h"

#include <algorithm>
#include <utility>

namespace console {

namespace {

/// The round that a counter is expected to have before it shows its own.
constexpr std::uint32_t UsualRound = 4000;

std::optional<double> Rate(std::uint64_t steps, StreamFigures::Time time) {
  if (time.count() <= 0 || steps == 0) return std::nullopt;
  return static_cast<double>(steps) * 1e6 / static_cast<double>(time.count());
}

}  // namespace

StreamFigures::StreamFigures(StreamIdentity who, Time arrived)
    : who_(std::move(who)), first_(arrived), last_(arrived) {}

void StreamFigures::Take(const sv::Frame& frame, const sv::Asdu& first, std::uint32_t asdus,
                         Time arrived) {
  const bool newForm = !met_ || asdus != state_.Asdus;
  if (newForm) track_.Begin(UsualRound, asdus);
  if (met_ && first.SmpSynch != state_.SmpSynch) ++synchChanges_;
  state_.Simulated = frame.Simulated();
  state_.Asdus = asdus;
  state_.Channels = first.Channels();
  state_.ConfRev = first.ConfRev;
  state_.SmpSynch = first.SmpSynch;
  state_.SmpRate = first.SmpRate;
  state_.SmpMod = first.SmpMod;
  if (first.Datset.value_or("") != state_.Datset) state_.Datset = first.Datset.value_or("");
  state_.Lan = frame.Prp ? frame.Prp->Lan : 0;
  who_.Tag = frame.TagCount == 0 ? std::nullopt : std::optional(frame.Tags[frame.TagCount - 1]);
  if (met_) gaps_.Add(arrived - last_);
  if (frames_ == 0) first_ = arrived;
  met_ = true;
  last_ = arrived;
  ++frames_;
  track_.Take(first.SmpCnt.value_or(0), arrived);
  constexpr std::uint64_t LookEvery = 256;
  if (frames_ % LookEvery == 0) track_.TakeBearings();
}

void StreamFigures::BeginStretch(Time now) {
  readingsBefore_ = Readings();
  totalsBefore_ = TotalsOfAll();
  framesBefore_ += frames_;
  frames_ = 0;
  synchChangesBefore_ = synchChanges_;
  gaps_.Clear();
  sums_.Clear();
  first_ = now;
}

sv::TrackTotals StreamFigures::TotalsOfAll() const {
  sv::TrackTotals totals = track_.Totals();
  // Behind a stretch in which nothing came at all nothing is on its way any more.
  if (!ended_ && frames_ > 0) totals.Missing -= track_.MayStillCome();
  // A count that was told is never taken back.
  totals.Missing = std::max(totals.Missing, totalsBefore_.Missing);
  totals.ByCounter = std::max(totals.ByCounter, totalsBefore_.ByCounter);
  return totals;
}

sv::TrackTotals StreamFigures::Totals() const {
  return TotalsOfAll() - totalsBefore_;
}

void StreamFigures::SetClock(Time step) {
  track_.SetClock(step);
  first_ += step;
  last_ += step;
}

void StreamFigures::Measure(const sv::Asdu& asdu, const NominalWave& wave) {
  if (wave_ != &wave) sums_.Clear();
  wave_ = &wave;
  sums_.Add(asdu, wave);
}

std::size_t StreamFigures::MeasuredChannels() const {
  constexpr std::uint64_t Tenths = 9;
  const std::optional<std::uint32_t> rate = KnownRate();
  const bool whole =
      rate && sums_.Samples() == Totals().Samples && sums_.Samples() * 10 >= *rate * Tenths;
  return whole ? sums_.Channels() : 0;
}

std::vector<ChannelReading> StreamFigures::Readings() const {
  std::vector<ChannelReading> readings;
  for (std::size_t k = 0; k < MeasuredChannels(); ++k) readings.push_back(Reading(k));
  return readings;
}

std::vector<ChannelReading> StreamFigures::LatestReadings() const {
  std::vector<ChannelReading> readings = Readings();
  return readings.empty() ? readingsBefore_ : readings;
}

std::optional<std::uint32_t> StreamFigures::KnownRate() const {
  if (const auto rate = track_.Rate()) return rate;
  const bool wentRound = track_.Totals().Samples > 2 * std::uint64_t{track_.Round()};
  return wentRound ? std::optional(track_.Round()) : std::nullopt;
}

std::optional<double> StreamFigures::FramesASecond() const {
  return frames_ < 2 ? std::nullopt : Rate(frames_ - 1, last_ - first_);
}

std::optional<double> StreamFigures::SamplesASecond() const {
  const std::optional<double> frames = FramesASecond();
  if (!frames) return std::nullopt;
  return *frames * state_.Asdus;
}

}  // namespace console
