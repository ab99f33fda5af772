#include "adapters/simulated/simulated_bus.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstdio>
#include <map>
#include <numbers>
#include <span>
#include <string>
#include <vector>

#include "adapters/hand_clock.h"
#include "base/failure.h"
#include "support/failures.h"

namespace {

using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""us;
using std::chrono_literals::operator""ns;

/// A frame as a reader without any knowledge of the writer finds it.
struct Decoded {
  std::map<std::string, std::vector<std::uint8_t>> Fields;
  std::vector<std::string> Order;

  std::uint32_t Number(const std::string& path) const {
    std::uint32_t number = 0;
    for (const std::uint8_t byte : Fields.at(path)) number = number << 8U | byte;
    return number;
  }
  std::string Text(const std::string& path) const {
    return {Fields.at(path).begin(), Fields.at(path).end()};
  }
  std::int32_t Word(std::size_t index) const {
    const auto& data = Fields.at("60.A2.30.87");
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i) word = word << 8U | data.at(4 * index + i);
    return static_cast<std::int32_t>(word);
  }
  std::int32_t Value(std::size_t channel) const { return Word(2 * channel); }
  std::int32_t Quality(std::size_t channel) const { return Word(2 * channel + 1); }
};

/// Walks through tags and lengths; the path of a field is the tags that it lies in.
void Walk(std::span<const std::uint8_t> bytes, const std::string& path, Decoded& decoded) {
  while (!bytes.empty()) {
    char tag[3];
    std::snprintf(tag, sizeof tag, "%02X", bytes[0]);
    const std::size_t length = bytes[1];
    ASSERT_LE(2 + length, bytes.size()) << path << tag;
    const auto content = bytes.subspan(2, length);
    const std::string name = path + tag;
    const bool constructed = (bytes[0] & 0x20) != 0;
    if (constructed) {
      Walk(content, name + ".", decoded);
    } else {
      decoded.Fields[name].assign(content.begin(), content.end());
      decoded.Order.push_back(name);
    }
    bytes = bytes.subspan(2 + length);
  }
}

constexpr std::size_t ApplicationStart = 18;
constexpr std::size_t UnitStart = ApplicationStart + 8;

Decoded Decode(const std::vector<std::uint8_t>& frame) {
  Decoded decoded;
  Walk(std::span(frame).subspan(UnitStart), "", decoded);
  return decoded;
}

class SimulatedBus : public ::testing::Test {
 protected:
  void Listen(const std::string& filter = "ether proto 0x88ba") {
    bus_.Prepare({262144, true, filter});
    bus_.Start();
  }
  std::vector<std::vector<std::uint8_t>> Due() {
    std::vector<std::vector<std::uint8_t>> frames;
    while (const auto frame = bus_.Next()) {
      EXPECT_EQ(frame->Length, frame->Bytes.size());
      frames.emplace_back(frame->Bytes.begin(), frame->Bytes.end());
    }
    return frames;
  }
  std::vector<Decoded> OnePeriod(const std::string& id) {
    clock_.Time += 20ms - 1ns;
    std::vector<Decoded> period;
    for (const auto& frame : Due()) {
      Decoded decoded = Decode(frame);
      if (decoded.Text("60.A2.30.80") == id) period.push_back(decoded);
    }
    return period;
  }
  /// The RMS phasor of a channel over a whole period, by plain correlation.
  static std::complex<double> Phasor(const std::vector<Decoded>& period, std::size_t channel) {
    std::complex<double> sum;
    for (std::size_t i = 0; i < period.size(); ++i) {
      const double turn =
          -2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(period.size());
      sum += static_cast<double>(period[i].Value(channel)) * std::polar(1.0, turn);
    }
    return sum * std::numbers::sqrt2 / static_cast<double>(period.size());
  }
  static double Degrees(std::complex<double> of, std::complex<double> against) {
    return std::arg(of / against) * 180 / std::numbers::pi;
  }
  static double Rms(const std::vector<Decoded>& period, std::size_t channel) {
    double sum = 0;
    for (const Decoded& sample : period) sum += std::pow(sample.Value(channel), 2);
    return std::sqrt(sum / static_cast<double>(period.size()));
  }

  adapter_tests::HandClock clock_;
  adapters::SimulatedBus bus_{clock_};
};

TEST_F(SimulatedBus, SendsTwoStreamsInTurnFourThousandTimesASecond) {
  Listen();
  clock_.Time = 1s - 1ns;
  const auto frames = Due();
  ASSERT_EQ(frames.size(), 8000U);
  for (std::size_t i = 0; i < frames.size(); ++i) {
    const Decoded decoded = Decode(frames[i]);
    ASSERT_EQ(decoded.Text("60.A2.30.80"), i % 2 == 0 ? "VORNIK-SIM-1" : "VORNIK-SIM-2");
    ASSERT_EQ(decoded.Number("60.A2.30.82"), i / 2);
  }
}

TEST_F(SimulatedBus, HandsOverAFrameWhenItIsDueAndNotBefore) {
  Listen();
  EXPECT_EQ(Due().size(), 2U);
  clock_.Time = 249us;
  EXPECT_EQ(Due().size(), 0U);
  clock_.Time = 250us;
  EXPECT_EQ(Due().size(), 2U);
  clock_.Time = 10ms;
  EXPECT_EQ(Due().size(), 2U * 39U);
}

TEST_F(SimulatedBus, WrapsItsSampleCountEachSecond) {
  clock_.Time = 1s - 250us;
  Listen();
  clock_.Time = 1s;
  const auto frames = Due();
  ASSERT_EQ(frames.size(), 4U);
  EXPECT_EQ(Decode(frames[0]).Number("60.A2.30.82"), 3999U);
  EXPECT_EQ(Decode(frames[2]).Number("60.A2.30.82"), 0U);
}

TEST_F(SimulatedBus, DropsTheFramesOfTheStoppedTimeAndGoesOnWithTime) {
  Listen();
  Due();
  bus_.Stop();
  clock_.Time = 10ms + 100us;
  EXPECT_EQ(Due().size(), 0U);
  bus_.Start();
  EXPECT_EQ(Due().size(), 0U);
  clock_.Time = 10ms + 250us;
  const auto frames = Due();
  ASSERT_EQ(frames.size(), 2U);
  EXPECT_EQ(Decode(frames[0]).Number("60.A2.30.82"), 41U);
}

TEST_F(SimulatedBus, BeginsWithASampleThatIsDueAndWithNoneThatIsPast) {
  clock_.Time = 10ms;
  Listen();
  EXPECT_EQ(Due().size(), 2U);
  bus_.Stop();
  clock_.Time = 10ms + 1ns;
  bus_.Start();
  EXPECT_EQ(Due().size(), 0U);
}

TEST_F(SimulatedBus, HandsOverWhatHasArrivedAndNoMore) {
  Listen();
  clock_.Time = 10ms;
  bus_.TakeNoMore();
  clock_.Time = 20ms;
  EXPECT_EQ(Due().size(), 2U * 41U);
  clock_.Time = 30ms;
  EXPECT_EQ(Due().size(), 0U);
  bus_.Stop();
  bus_.Start();
  EXPECT_EQ(Due().size(), 2U) << "a start takes what comes";
}

TEST_F(SimulatedBus, TellsWhetherItHasLookedAtAllThatTheFilterRefuses) {
  Listen("ether host 02:00:00:00:00:99");
  clock_.Time = 1s - 1ns;
  EXPECT_FALSE(bus_.Next());
  EXPECT_FALSE(bus_.LookedAtAll());
  EXPECT_FALSE(bus_.Next());
  EXPECT_TRUE(bus_.LookedAtAll());
}

TEST_F(SimulatedBus, WritesTheHeadsOfAMergingUnit) {
  Listen();
  const auto frames = Due();
  ASSERT_EQ(frames.size(), 2U);
  for (std::uint8_t unit = 0; unit < 2; ++unit) {
    const auto& frame = frames[unit];
    const std::vector<std::uint8_t> destination{0x01, 0x0C, 0xCD,
                                                0x04, 0x00, static_cast<std::uint8_t>(unit + 1)};
    EXPECT_EQ(std::vector(frame.begin(), frame.begin() + 6), destination);
    EXPECT_EQ(frame[6] & 0x03, 0x02) << "an own address that is locally administered";
    const std::vector<std::uint8_t> heads{0x81, 0x00, 0x80, 0x00, 0x88, 0xBA, 0x40, 0x00};
    EXPECT_EQ(std::vector(frame.begin() + 12, frame.begin() + 20), heads);
    EXPECT_EQ(frame[20] << 8 | frame[21], static_cast<int>(frame.size() - ApplicationStart));
    EXPECT_EQ(std::vector(frame.begin() + 22, frame.begin() + 26), std::vector<std::uint8_t>(4, 0));
    EXPECT_EQ(frame[UnitStart], 0x60);
  }
  EXPECT_NE(frames[0][11], frames[1][11]);
}

TEST_F(SimulatedBus, WritesTheFieldsOfASample) {
  Listen();
  const Decoded decoded = Decode(Due().at(0));
  EXPECT_EQ(decoded.Order, (std::vector<std::string>{"60.80", "60.A2.30.80", "60.A2.30.82",
                                                     "60.A2.30.83", "60.A2.30.85", "60.A2.30.87"}));
  EXPECT_EQ(decoded.Number("60.80"), 1U);
  EXPECT_EQ(decoded.Number("60.A2.30.83"), 1U);
  EXPECT_EQ(decoded.Fields.at("60.A2.30.82").size(), 2U);
  EXPECT_EQ(decoded.Fields.at("60.A2.30.83").size(), 4U);
  EXPECT_EQ(decoded.Fields.at("60.A2.30.85"), std::vector<std::uint8_t>{2});
  EXPECT_EQ(decoded.Fields.at("60.A2.30.87").size(), 64U);
  for (std::size_t channel = 0; channel < 8; ++channel) {
    EXPECT_EQ(decoded.Quality(channel), channel % 4 == 3 ? 0x2000 : 0) << channel;
  }
}

TEST_F(SimulatedBus, SendsTheFirstStreamsThreePhases) {
  Listen();
  const auto period = OnePeriod("VORNIK-SIM-1");
  ASSERT_EQ(period.size(), 80U);
  const auto reference = Phasor(period, 4);
  const std::array<double, 3> phase{0, -120, 120};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(Rms(period, i), 400'000, 1);
    EXPECT_NEAR(Rms(period, 4 + i), 6'350'900, 1);
    EXPECT_NEAR(Degrees(Phasor(period, 4 + i), reference), phase[i], 0.001);
    EXPECT_NEAR(Degrees(Phasor(period, i), Phasor(period, 4 + i)), -30, 0.001);
  }
}

TEST_F(SimulatedBus, SendsTheSecondStreamsThreePhases) {
  Listen();
  const auto period = OnePeriod("VORNIK-SIM-2");
  ASSERT_EQ(period.size(), 80U);
  const std::array<double, 3> phase{0, -120, 120};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(Rms(period, i), 150'000, 1);
    EXPECT_NEAR(Rms(period, 4 + i), 1'154'700, 1);
    EXPECT_NEAR(Degrees(Phasor(period, 4 + i), Phasor(period, 4)), phase[i], 0.001);
    EXPECT_NEAR(Degrees(Phasor(period, i), Phasor(period, 4 + i)), 15, 0.001);
  }
}

TEST_F(SimulatedBus, SendsSmallNeutrals) {
  Listen();
  const auto period = OnePeriod("VORNIK-SIM-1");
  for (const std::size_t phase : {std::size_t{0}, std::size_t{4}}) {
    EXPECT_GT(Rms(period, phase + 3), 0.001 * Rms(period, phase));
    EXPECT_LT(Rms(period, phase + 3), 0.01 * Rms(period, phase));
  }
}

TEST_F(SimulatedBus, HonoursTheUsersFilter) {
  Listen("ether proto 0x88ba and ether dst 01:0c:cd:04:00:02");
  clock_.Time = 1ms;
  const auto frames = Due();
  ASSERT_EQ(frames.size(), 5U);
  EXPECT_EQ(Decode(frames[0]).Text("60.A2.30.80"), "VORNIK-SIM-2");
  Listen("ether proto 0x88ba and not vlan");
  clock_.Time = 2ms;
  EXPECT_EQ(Due().size(), 0U);
}

TEST_F(SimulatedBus, ComesBackFromABacklogThatItsFilterRefuses) {
  // Of a second's 8000 frames only the last two, by the sample count behind the stream's name.
  Listen("ether proto 0x88ba and ether[47:2] = 3999");
  clock_.Time = 1s - 1ns;
  EXPECT_FALSE(bus_.Next());
  const auto frame = bus_.Next();
  ASSERT_TRUE(frame);
  EXPECT_EQ(Decode({frame->Bytes.begin(), frame->Bytes.end()}).Number("60.A2.30.82"), 3999U);
}

TEST_F(SimulatedBus, RefusesAFilterAtTheStart) {
  bus_.Prepare({262144, true, "ether proto 0x88ba nonsense"});
  EXPECT_EQ(support::FailureOf([&] { bus_.Start(); }), platform::failure::FilterRefused);
  EXPECT_EQ(Due().size(), 0U);
}

}  // namespace
