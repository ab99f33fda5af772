#include "live/scenes/bus_unit.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <stdexcept>

namespace live {

namespace {

constexpr std::size_t AddressAt = 6;
constexpr std::size_t AddressEnd = 12;
constexpr std::size_t VoltageA = 4;
constexpr std::size_t SamplesAPeriod = 80;
/// Blocks are tried with so many beginnings.
constexpr std::size_t MostBeginnings = 100;
constexpr double DegreesApart = 0.1;

using Columns = std::vector<Row>;

/// The RMS of a block without its mean.
double Rms(const Columns& rows, std::size_t begin, std::size_t channel) {
  double sum = 0;
  double squares = 0;
  for (std::size_t i = begin; i < begin + BusUnit::BlockRows; ++i) {
    sum += rows[i].Values[channel];
    squares += rows[i].Values[channel] * rows[i].Values[channel];
  }
  const double mean = sum / BusUnit::BlockRows;
  return std::sqrt(std::max(0.0, squares / BusUnit::BlockRows - mean * mean));
}

/// A block's angle at one turn in 80 rows, in degrees.
double Angle(const Columns& rows, std::size_t begin, std::size_t channel) {
  std::complex<double> sum;
  for (std::size_t i = 0; i < BusUnit::BlockRows; ++i) {
    const double turn = 2 * std::numbers::pi * static_cast<double>(i % SamplesAPeriod) /
                        static_cast<double>(SamplesAPeriod);
    sum += rows[begin + i].Values[channel] * std::polar(1.0, -turn);
  }
  return std::arg(sum) * 180 / std::numbers::pi;
}

double Wrapped(double degrees) {
  return std::remainder(degrees, 360);
}

}  // namespace

bool Span::Holds(const std::string& text) const {
  std::string number = text;
  std::erase(number, ',');
  try {
    const double value = std::stod(number);
    const double slack = 0.001 + 1e-4 * std::abs(High);
    return value >= Low - slack && value <= High + slack;
  } catch (const std::logic_error&) {
    return false;
  }
}

bool BusUnit::IsOf(const Frame& frame) const {
  return std::equal(frame.begin() + AddressAt, frame.begin() + AddressEnd,
                    frames_[0].begin() + AddressAt);
}

void BusUnit::Read(std::size_t expected) {
  expected_ = expected;
  id_ = Reader().Id();
  place_ = PlaceOf(frames_[0], expected);
  rows_.clear();
  if (!place_) return;
  for (const Frame& frame : frames_) {
    // A place that changes from frame to frame would be a matter of luck.
    if (PlaceOf(frame, expected) != place_) throw std::runtime_error("samples that spell a tag");
    rows_.push_back(RowOf(frame, *place_));
  }
  ReadSpans();
}

std::vector<std::size_t> BusUnit::Channels() const {
  std::vector<std::size_t> channels;
  for (std::size_t k = 0; place_ && k < std::min<std::size_t>(place_->Channels, 8); ++k) {
    if (k != Seconds) channels.push_back(k);
  }
  return channels;
}

void BusUnit::ReadSpans() {
  if (rows_.size() < BlockRows) throw std::runtime_error("too few frames of " + id_);
  const std::size_t beginnings = std::min(MostBeginnings, rows_.size() - BlockRows + 1);
  for (const std::size_t channel : Channels()) {
    ChannelSpans& spans = spans_[channel];
    spans.Rms.Low = spans.Rms.High = Rms(rows_, 0, channel);
    const auto angle = [&](std::size_t begin) {
      return Wrapped(Angle(rows_, begin, channel) - Angle(rows_, begin, VoltageA));
    };
    spans.Angle = angle(0);
    for (std::size_t begin = 1; begin < beginnings; ++begin) {
      const double rms = Rms(rows_, begin, channel);
      spans.Rms = {std::min(spans.Rms.Low, rms), std::max(spans.Rms.High, rms)};
      if (!spans.Angle) continue;
      if (std::abs(Wrapped(angle(begin) - *spans.Angle)) > DegreesApart) spans.Angle.reset();
    }
  }
}

bool BusUnit::Brings(const std::array<std::vector<double>, 8>& block) const {
  for (std::size_t begin = 0; begin + BlockRows <= rows_.size(); ++begin) {
    if (BringsFrom(begin, block)) return true;
  }
  return false;
}

bool BusUnit::BringsFrom(std::size_t begin, const std::array<std::vector<double>, 8>& block) const {
  for (std::size_t i = 0; i < BlockRows; ++i) {
    for (const std::size_t channel : Channels()) {
      if (block[channel].size() != BlockRows) return false;
      if (std::abs(block[channel][i] - rows_[begin + i].Values[channel]) > 1e-9) return false;
    }
  }
  return true;
}

}  // namespace live
