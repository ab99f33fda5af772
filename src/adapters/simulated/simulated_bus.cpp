#include "adapters/simulated/simulated_bus.h"

#include <cmath>
#include <numbers>

#include "platform/stream_format.h"

namespace adapters {

namespace {

using platform::SamplesAPeriod;
using platform::SampleTime;
using std::chrono::microseconds;
using std::chrono::nanoseconds;

constexpr std::size_t PhaseCount = 3;
/// Where phases A, B and C of a set stand, in degrees.
constexpr std::array<double, PhaseCount> PhaseAngle{0.0, -120.0, 120.0};

/// One three-phase set with its neutral. Amplitudes are RMS in units of the frame, angles in
/// degrees.
struct PhaseSet {
  double Rms;
  double NeutralRms;
  double Angle;
};

/// Currents in mA, voltages in 10 mV; a negative angle lags.
constexpr PhaseSet FirstCurrents{400'000.0, 1'200.0, -30.0};
constexpr PhaseSet FirstVoltages{6'350'900.0, 9'500.0, 0.0};
constexpr PhaseSet SecondCurrents{150'000.0, 600.0, 15.0};
constexpr PhaseSet SecondVoltages{1'154'700.0, 2'300.0, 0.0};

/// The merging unit with this number: its name, and group and own addresses that end in the number.
SvStreamIdentity Unit(std::uint8_t number) {
  return {"VORNIK-SIM-" + std::to_string(number),
          {0x01, 0x0C, 0xCD, 0x04, 0x00, number},
          {0x02, 0x56, 0x4F, 0x52, 0x00, number}};
}

std::int32_t Momentary(double rms, double degrees) {
  const double radians = degrees * std::numbers::pi / 180.0;
  return static_cast<std::int32_t>(std::lround(rms * std::numbers::sqrt2 * std::sin(radians)));
}

/// Writes the four channels of a set from `first` on, at an angle of the period.
void PutSet(SvSample& sample, std::size_t first, const PhaseSet& set, double angle) {
  for (std::size_t phase = 0; phase < PhaseCount; ++phase) {
    sample[first + phase] = Momentary(set.Rms, angle + set.Angle + PhaseAngle[phase]);
  }
  sample[first + PhaseCount] = Momentary(set.NeutralRms, angle + set.Angle);
}

template <std::size_t Size>
std::array<SvSample, Size> OnePeriod(const PhaseSet& currents, const PhaseSet& voltages) {
  std::array<SvSample, Size> period{};
  for (std::size_t i = 0; i < Size; ++i) {
    const double angle = 360.0 * static_cast<double>(i) / static_cast<double>(Size);
    PutSet(period[i], platform::channels::CurrentA, currents, angle);
    PutSet(period[i], platform::channels::VoltageA, voltages, angle);
  }
  return period;
}

}  // namespace

SimulatedBus::SimulatedBus(const platform::Clock& clock)
    : clock_(clock),
      streams_{
          Stream{SvFrameWriter(Unit(1)), OnePeriod<SamplesAPeriod>(FirstCurrents, FirstVoltages)},
          Stream{SvFrameWriter(Unit(2)),
                 OnePeriod<SamplesAPeriod>(SecondCurrents, SecondVoltages)}} {}

void SimulatedBus::Prepare(const SourceSettings& settings) {
  running_ = false;
  if (settings.Filter == filterText_) return;
  filterText_ = settings.Filter;
  filter_.reset();
}

void SimulatedBus::Start() {
  if (!filter_) filter_.emplace(filterText_);
  if (running_) return;
  // The first sample that is not past yet, so that a start finds the bus in the middle of its
  // second.
  sample_ = (clock_.Now() + SampleTime - nanoseconds(1)) / SampleTime;
  stream_ = 0;
  bound_ = nanoseconds::max();
  wallAtZero_ = clock_.WallTime() - std::chrono::duration_cast<microseconds>(clock_.Now());
  running_ = true;
}

SimulatedBus::Stream& SimulatedBus::WriteNext() {
  Stream& stream = streams_[stream_];
  const auto place = static_cast<std::size_t>(sample_) % SamplesAPeriod;
  stream.Writer.Write(static_cast<std::uint16_t>(sample_ % platform::SamplesASecond),
                      stream.Period[place]);
  stream_ = (stream_ + 1) % StreamCount;
  if (stream_ == 0) ++sample_;
  return stream;
}

std::optional<platform::CapturedFrame> SimulatedBus::Next() {
  lookedAtAll_ = true;
  if (!running_) return std::nullopt;
  const nanoseconds now = std::min(clock_.Now(), bound_);
  for (int lookedAt = 0; sample_ * SampleTime <= now; ++lookedAt) {
    if (lookedAt == MostLookedAt) {
      lookedAtAll_ = false;
      break;
    }
    const auto sent = std::chrono::duration_cast<microseconds>(sample_ * SampleTime);
    const std::span<const std::uint8_t> frame = WriteNext().Writer.Frame();
    if (!filter_->Selects(frame, frame.size())) continue;
    return platform::CapturedFrame{frame, frame.size(), wallAtZero_ + sent};
  }
  return std::nullopt;
}

}  // namespace adapters
