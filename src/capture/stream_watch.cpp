#include "capture/stream_watch.h"

#include <algorithm>
#include <utility>

#include "platform/stream_format.h"

namespace packetroutines {

namespace {

/// A clock that is led slowly, or a moment between two readings, is no clock that was set.
constexpr StreamWatch::Time ShortestStep{100'000};
/// The lowest bits of a quality word tell the validity (IEC 61850-7-3).
constexpr std::uint32_t ValidityBits = 3;
constexpr std::uint32_t InvalidQuality = 1;

std::int32_t OneBased(std::size_t at) {
  return static_cast<std::int32_t>(at) + 1;
}

std::uint32_t InvalidChannels(const sv::Asdu& asdu) {
  std::uint32_t invalid = 0;
  for (std::size_t k = 0; k < std::min(asdu.Channels(), platform::channels::Count); ++k) {
    if ((asdu.Quality(k) & ValidityBits) == InvalidQuality) invalid |= 1U << k;
  }
  return invalid;
}

}  // namespace

std::uint32_t AssumedRate(const config::Settings& settings) {
  const float rate = settings.BaseFrequency * static_cast<float>(platform::SamplesAPeriod);
  // The store may hold any frequency; a counter has two octets.
  return static_cast<std::uint32_t>(std::clamp(rate, 1.0F, 65536.0F));
}

void StreamWatch::BeginBurst(std::size_t stream) {
  Watched& watched = watched_[stream];
  watched.Asked = true;
  watched.Begins = true;
  watched.CounterAt = watched.SynchAt = Nowhere;
  watched.First.clear();
}

void StreamWatch::LookAgain() {
  for (Watched& watched : watched_) watched.Asked = true;
}

void StreamWatch::LookAt(std::size_t stream, const PacketBytes& bytes, Time arrived) {
  Watched& watched = watched_[stream];
  watched.Asked = false;
  const auto length = static_cast<std::size_t>(bytes.FrameLength());
  const sv::Frame frame = sv::ReadFrame({bytes.Run(1, bytes.FrameLength()), length}, length);
  sv::AsduReader reader(frame);
  sv::Asdu first;
  StreamLook look{.Simulated = frame.Simulated(), .FoundAt = streams_.ValueOffset[stream]};
  const std::int32_t counterFound = streams_.SampleCountOffset[stream];
  bool found = false;
  for (sv::Asdu asdu; reader.Next(asdu);) {
    if (reader.Count() == 1) first = asdu;
    look.Invalid |= InvalidChannels(asdu);
    found = found ||
            (OneBased(asdu.SamplesAt) == look.FoundAt && OneBased(asdu.SmpCntAt) == counterFound);
  }
  look.Why = reader.Why();
  look.Asdus = reader.Count();
  look.Channels = first.Channels();
  if (first.SamplesAt > 0) look.SamplesAt = OneBased(first.SamplesAt);
  look.Located = streams_.SamplesLocated[stream] != 0;
  look.WellLocated = found || look.Why != sv::Fault::None || !look.Located;
  watched.Look = look;
  if (watched.Begins) {
    watched.First.assign(frame.Bytes.begin(), frame.Bytes.end());
    watched.FirstArrived = arrived;
  }
  const bool begins = std::exchange(watched.Begins, false);
  const std::int32_t before = watched.CounterAt;
  const std::uint32_t stepBefore = watched.Step;
  if (begins || look.Why == sv::Fault::None) Place(watched, look, first, counterFound);
  if (!begins && watched.CounterAt == before && watched.Step == stepBefore) return;
  // What a frame looks like has changed, and its counter may stand for another sample.
  watched.Track.Begin(AssumedRate(settings_), watched.Step);
  if (begins) BeginStretch(stream);
}

void StreamWatch::Place(Watched& watched, const StreamLook& look, const sv::Asdu& first,
                        std::int32_t counterFound) {
  const bool sound = look.Why == sv::Fault::None && look.Asdus > 0;
  const std::int32_t searched = look.Located ? counterFound : Nowhere;
  watched.CounterAt = sound ? OneBased(first.SmpCntAt) : searched;
  const std::int32_t synchAt = first.SmpSynchAt > 0 ? OneBased(first.SmpSynchAt) : Nowhere;
  if (synchAt != watched.SynchAt) watched.Synch = first.SmpSynch.value_or(0);
  watched.SynchAt = synchAt;
  watched.Step = sound ? look.Asdus : 1;
}

void StreamWatch::BeginStretch(std::size_t stream) {
  watched_[stream].Track.BeginStretch();
  watched_[stream].Changes = {};
}

void StreamWatch::NoteSynch(Watched& watched, std::uint8_t synch, Time arrived) {
  if (watched.Changes.Changed.Count == 0) watched.Changes.From = watched.Synch;
  watched.Changes.To = synch;
  // The frame at hand was taken already.
  watched.Changes.Changed.Note(watched.Track.Since().Frames - 1, arrived);
  watched.Synch = synch;
}

void StreamWatch::AskClock() {
  const Time ahead = clock_.WallTime() - std::chrono::duration_cast<Time>(clock_.SinceBoot());
  const Time step = ahead - ahead_.value_or(ahead);
  ahead_ = ahead;
  if (std::chrono::abs(step) < ShortestStep) return;
  clockStep_ += step;
  for (Watched& watched : watched_) watched.ClockSet += step;
}

void StreamWatch::TakeOdd(Watched& watched, std::uint32_t count, Time arrived) {
  if (!watched.Track.InTime(arrived)) FollowClock(watched, arrived);
  watched.Track.Take(count, arrived);
}

void StreamWatch::FollowClock(Watched& watched, Time arrived) {
  AskClock();
  // Frames that came before the clock was set may still have waited.
  const Time apart = arrived - watched.Track.Last();
  if (std::chrono::abs(apart - watched.ClockSet) >= std::chrono::abs(apart)) return;
  watched.Track.SetClock(watched.ClockSet);
  watched.ClockSet = Time{0};
}

StreamWatch::Time StreamWatch::TakeClockStep() {
  AskClock();
  const Time step = clockStep_;
  clockStep_ = Time{0};
  return step;
}

}  // namespace packetroutines
