#include "console/comtrade/stream_recording.h"

#include <cmath>
#include <utility>

namespace console {

namespace {

using std::chrono::microseconds;
using std::chrono::seconds;

/// The round that a counter is expected to have before it shows its own.
constexpr std::uint32_t UsualRound = 4000;
/// So long the first samples wait for their rate at most.
constexpr StreamRecording::Time LongestWait{1'000'000};
/// Steps of the wire (IEC 61850-9-2LE): 1 mA and 10 mV.
constexpr double CurrentStep = 1e-3;
constexpr double VoltageStep = 1e-2;
constexpr std::size_t UsualChannels = 8;

/// Four currents and four voltages, as the guideline orders them; of others nothing is known but
/// their number.
std::vector<ComtradeChannel> ChannelsOf(std::size_t count) {
  constexpr const char* Names[] = {"Ia", "Ib", "Ic", "In", "Va", "Vb", "Vc", "Vn"};
  constexpr const char* Phases[] = {"A", "B", "C", "N"};
  const StoredRange range = RangeOf(ComtradeForm::Binary32);
  std::vector<ComtradeChannel> channels;
  for (std::size_t k = 0; k < count; ++k) {
    ComtradeChannel channel{
        "Value " + std::to_string(k + 1), "", "NONE", 1, range.Least, range.Greatest};
    if (count == UsualChannels) {
      const bool current = k < UsualChannels / 2;
      channel.Name = Names[k];
      channel.Phase = Phases[k % (UsualChannels / 2)];
      channel.Unit = current ? "A" : "V";
      channel.Factor = current ? CurrentStep : VoltageStep;
    }
    channels.push_back(channel);
  }
  return channels;
}

}  // namespace

StreamRecording::StreamRecording(platform::FileSystem& files, const platform::Calendar& calendar,
                                 Wish wish)
    : files_(files), calendar_(calendar), wish_(std::move(wish)) {}

void StreamRecording::Take(const std::vector<sv::Asdu>& asdus, Time arrived) {
  const sv::Asdu& first = asdus.front();
  if (asdus.size() != asdus_) {
    asdus_ = static_cast<std::uint32_t>(asdus.size());
    track_.Begin(rate_ == 0 ? UsualRound : rate_, asdus_);
  }
  if (channels_ == 0) channels_ = first.Channels();
  const sv::TrackTotals before = track_.Totals();
  track_.Take(first.SmpCnt.value_or(0), arrived);
  const sv::TrackTotals met = track_.Totals() - before;
  // What comes late takes its place again, and counts backwards.
  const bool gap = track_.Totals().Missing > before.Missing && met.Missing > met.ByCounter;
  std::uint64_t unseen = gap ? met.Missing - met.ByCounter : 0;
  for (const sv::Asdu& asdu : asdus) {
    if (asdu.Channels() != channels_) {
      ++unfit_;
      continue;
    }
    Sample& sample = waiting_.emplace_back();
    sample.Counter = asdu.SmpCnt.value_or(0);
    sample.Arrived = arrived;
    sample.Synch = asdu.SmpSynch.value_or(0);
    sample.Unseen = std::exchange(unseen, 0);
    for (std::size_t k = 0; k < channels_; ++k) sample.Values.push_back(asdu.Value(k));
  }
  if (rate_ == 0) rate_ = track_.Rate().value_or(0);
  if (rate_ == 0 && !waiting_.empty() && arrived - waiting_.front().Arrived >= LongestWait) {
    rate_ = static_cast<std::uint32_t>(track_.SamplesSent(seconds(1)));
  }
  if (rate_ > 0) StoreWaiting();
}

void StreamRecording::StoreWaiting() {
  while (!waiting_.empty()) {
    const Sample sample = std::move(waiting_.front());
    waiting_.pop_front();
    // A counter beyond the rate has no place in it.
    if (sample.Counter < rate_) {
      StoreSample(sample);
    } else {
      ++unfit_;
    }
  }
}

void StreamRecording::StoreSample(const Sample& sample) {
  const bool full = wish_.Every.count() > 0 && file_ &&
                    file_->Samples() + SampleOrder::Waiting >= wish_.Every.count() * rate_;
  if (full) EndFile();
  if (!file_) Begin(sample);
  order_->SkipRounds(static_cast<std::int64_t>(sample.Unseen / rate_));
  order_->Take(sample.Counter, sample.Values);
  if (file_->Samples() - storedAt_ < rate_) return;
  file_->Store();
  storedAt_ = file_->Samples();
  wish_.Stored(path_);
}

StreamRecording::Time StreamRecording::MomentOf(const Sample& first) const {
  if (first.Synch == 0) return first.Arrived;
  // The counter of a synchronised sender begins with the whole second, which is far more exact than
  // the arrival.
  const Time within{first.Counter * 1'000'000 / rate_};
  const Time second = std::chrono::round<seconds>(first.Arrived - within);
  return second + within;
}

ComtradeHead StreamRecording::HeadOf(const Sample& first) const {
  const Time moment = MomentOf(first);
  const auto second = std::chrono::floor<seconds>(moment);
  const platform::LocalTime epoch{1970, 1, 1, 0, 0, 0};
  ComtradeHead head;
  head.Edition = ComtradeEdition::Of2013;
  head.Form = ComtradeForm::Binary32;
  head.Station = wish_.Station;
  head.Channels = ChannelsOf(channels_);
  head.Frequency = wish_.Frequency;
  head.Rate = rate_;
  head.Start = calendar_.At(second);
  head.StartMicroseconds = static_cast<std::int32_t>((moment - second).count());
  head.AheadOfGreenwich = std::chrono::duration_cast<std::chrono::minutes>(
      seconds(platform::SecondsBetween(epoch, head.Start)) - second);
  return head;
}

void StreamRecording::Begin(const Sample& first) {
  ComtradeHead head = HeadOf(first);
  const std::string path = wish_.PathOf(head.Start);
  path_ = ComtradeFile::PathsOf(ComtradeFiles::Single, path).front();
  file_.emplace(files_, std::move(head), ComtradeFiles::Single, path);
  order_.emplace(static_cast<std::int32_t>(rate_), *file_);
  storedAt_ = 0;
}

void StreamRecording::EndFile() {
  order_->Finish();
  file_->Finish();
  before_ = {Samples(), Missing()};
  order_.reset();
  file_.reset();
  wish_.Finished(path_);
}

void StreamRecording::Finish() {
  if (rate_ == 0 && !waiting_.empty()) {
    rate_ = static_cast<std::uint32_t>(track_.SamplesSent(seconds(1)));
  }
  if (rate_ > 0) StoreWaiting();
  if (file_) EndFile();
}

}  // namespace console
