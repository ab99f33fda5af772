#include "console/comtrade/stream_recording.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace console {

namespace {

using std::chrono::microseconds;
using std::chrono::seconds;

/// A sender that begins anew more often has no counter, and would leave a file for each sample.
constexpr StreamRecording::Time ShortestRun{1'000'000};
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
    : files_(files), calendar_(calendar), wish_(std::move(wish)), finder_(wish_.Frequency) {}

void StreamRecording::Take(const std::vector<sv::Asdu>& asdus, Time arrived) {
  const auto beyond = [this](const sv::Asdu& asdu) { return asdu.SmpCnt.value_or(0) >= rate_; };
  // It is recorded with a wrong rate, or the counter is a broken one: what comes tells.
  if (rate_ > 0 && finder_.Found() == rate_ && std::any_of(asdus.begin(), asdus.end(), beyond)) {
    finder_.BeginAnew();
  }
  finder_.Take(asdus, arrived);
  waiting_.push_back(Kept(asdus, arrived));
  if (const std::optional<std::uint32_t> rate = finder_.Found()) StoreWaiting(*rate);
}

void StreamRecording::SetClock(Time step) {
  track_.SetClock(step);
  finder_.SetClock(step);
  runBegan_ += step;
  for (Frame& frame : waiting_) frame.Arrived += step;
}

StreamRecording::Frame StreamRecording::Kept(const std::vector<sv::Asdu>& asdus, Time arrived) {
  Frame frame{arrived, static_cast<std::uint32_t>(asdus.size()), {}};
  if (channels_ == 0) channels_ = asdus.front().Channels();
  for (const sv::Asdu& asdu : asdus) {
    if (asdu.Channels() != channels_) {
      ++unfit_;
      continue;
    }
    Sample& sample = frame.Samples.emplace_back();
    sample.Counter = asdu.SmpCnt.value_or(0);
    sample.Synch = asdu.SmpSynch.value_or(0);
    for (std::size_t k = 0; k < channels_; ++k) sample.Values.push_back(asdu.Value(k));
  }
  return frame;
}

void StreamRecording::StoreWaiting(std::uint32_t rate) {
  if (rate != rate_) {
    EndRun();
    rate_ = rate;
    asdus_ = 0;
  }
  while (!waiting_.empty()) {
    const Frame frame = std::move(waiting_.front());
    waiting_.pop_front();
    StoreFrame(frame);
  }
}

void StreamRecording::StoreFrame(const Frame& frame) {
  if (frame.Samples.empty()) return;
  // A counter beyond the rate has no place in it, and nothing is told by it.
  if (frame.Samples.front().Counter < rate_) Follow(frame);
  for (const Sample& sample : frame.Samples) {
    if (sample.Counter < rate_) {
      StoreSample(sample, frame.Arrived);
    } else {
      ++unfit_;
    }
  }
}

void StreamRecording::Follow(const Frame& frame) {
  if (frame.Asdus != asdus_) {
    asdus_ = frame.Asdus;
    track_.Begin(rate_, asdus_);
  }
  const sv::TrackTotals before = track_.Totals();
  track_.Take(static_cast<std::uint32_t>(frame.Samples.front().Counter), frame.Arrived);
  constexpr std::uint64_t LookEvery = 256;
  if (++frames_ % LookEvery == 0) track_.TakeBearings();
  const sv::TrackTotals& now = track_.Totals();
  const bool anew = now.Jumped > before.Jumped && frame.Arrived - runBegan_ >= ShortestRun;
  // What comes late takes its place again, and counts backwards.
  const std::uint64_t hole = now.Missing - std::min(before.Missing, now.Missing);
  if (!order_ || (!anew && hole < rate_)) return;
  EndRun();
  before_.Missing += static_cast<std::int64_t>(hole);
}

void StreamRecording::StoreSample(const Sample& sample, Time arrived) {
  const Anchor before = std::exchange(latest_, {sample.Counter, sample.Synch, arrived});
  if (!order_) {
    const Time moment = MomentOf(latest_);
    Begin(moment, TakeFreePath(moment));
    SampleSink& files = *this;
    order_.emplace(static_cast<std::int32_t>(rate_), files);
    runBegan_ = arrived;
  }
  const std::int64_t place = order_->Latest();
  order_->Take(sample.Counter, sample.Values);
  // One that came late tells nothing of the latest.
  if (order_->Latest() == place) latest_ = before;
}

void StreamRecording::Add(std::span<const double> stored) {
  EndInTime();
  file_->Add(stored);
  StoreInTime();
}

void StreamRecording::AddMissing(std::int64_t samples) {
  for (std::int64_t i = 0; i < samples; ++i) {
    EndInTime();
    file_->AddMissing(1);
    StoreInTime();
  }
}

void StreamRecording::EndInTime() {
  if (full_ == 0 || file_->Samples() < full_ || file_->Failed()) return;
  const std::int64_t behind = order_->Latest() - order_->Next();
  const Time moment = MomentOf(latest_) - Time(behind * std::micro::den / rate_);
  // A clock that is set back, as in autumn, brings an hour twice: the next second is another name.
  const std::optional<std::string> path = TakePathAt(std::chrono::floor<seconds>(moment));
  if (!path) {
    full_ += rate_;
    return;
  }
  EndFile();
  Begin(moment, *path);
}

void StreamRecording::StoreInTime() {
  if (file_->Failed() || file_->Samples() - storedAt_ < rate_) return;
  file_->Store();
  storedAt_ = file_->Samples();
  wish_.Stored(path_);
}

StreamRecording::Time StreamRecording::MomentOf(const Anchor& anchor) const {
  if (anchor.Synch == 0) return anchor.Arrived;
  // The counter of a synchronised sender begins with the whole second, which is far more exact than
  // the arrival.
  const Time within{anchor.Counter * std::micro::den / rate_};
  const Time second = std::chrono::round<seconds>(anchor.Arrived - within);
  return second + within;
}

ComtradeHead StreamRecording::HeadOf(Time moment) const {
  const auto second = std::chrono::floor<seconds>(moment);
  const platform::LocalTime epoch{1970, 1, 1, 0, 0, 0};
  ComtradeHead head;
  head.Edition = ComtradeEdition::Of2013;
  head.Form = ComtradeForm::Binary32;
  head.Station = FitComtradeName(wish_.Station);
  head.Channels = ChannelsOf(channels_);
  head.Frequency = wish_.Frequency.value_or(UsualFrequency(rate_));
  head.Rate = rate_;
  head.Start = calendar_.At(second);
  head.StartMicroseconds = static_cast<std::int32_t>((moment - second).count());
  head.AheadOfGreenwich = std::chrono::duration_cast<std::chrono::minutes>(
      seconds(platform::SecondsBetween(epoch, head.Start)) - second);
  return head;
}

std::optional<std::string> StreamRecording::TakePathAt(seconds second) {
  std::string path = wish_.PathOf(calendar_.At(second));
  if (!files_.MakeNew(ComtradeFile::PathsOf(ComtradeFiles::Single, path).front())) return {};
  return path;
}

std::string StreamRecording::TakeFreePath(Time moment) {
  for (auto second = std::chrono::floor<seconds>(moment);; ++second) {
    if (const std::optional<std::string> path = TakePathAt(second)) return *path;
  }
}

void StreamRecording::Begin(Time moment, const std::string& path) {
  path_ = ComtradeFile::PathsOf(ComtradeFiles::Single, path).front();
  file_.emplace(files_, HeadOf(moment), ComtradeFiles::Single, path);
  storedAt_ = 0;
  full_ = std::llround(wish_.Every.count() * rate_);
}

void StreamRecording::EndRun() {
  if (!order_) return;
  order_->Finish();
  EndFile();
  before_.Missing += order_->Missing();
  order_.reset();
}

void StreamRecording::EndFile() {
  file_->Finish();
  before_.Samples += file_->Samples();
  file_.reset();
  wish_.Finished(path_);
}

void StreamRecording::Finish() {
  // What the disk has not taken has nothing behind it.
  const bool failed = file_ && file_->Failed();
  if (!failed && !waiting_.empty()) StoreWaiting(finder_.Guess());
  EndRun();
}

}  // namespace console
