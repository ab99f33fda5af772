#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "console/bus/stream_figures.h"
#include "platform/services/capture_object.h"
#include "sv/fault.h"

namespace console {

/// All streams of a bus, told apart by station ID, addresses, AppID and VLAN as the structure of
/// their frames gives them, in the order in which they were met.
class BusStreams {
 public:
  using Time = StreamFigures::Time;
  /// A bus that shows more is out of its mind; the others are only counted.
  static constexpr std::size_t MostStreams = 1024;

  BusStreams() = default;
  /// Measures the channels too, at a nominal frequency in Hz.
  explicit BusStreams(std::uint32_t frequency) : frequency_(frequency) {}

  void Take(const platform::CapturedFrame& captured);
  /// Nothing comes any more.
  void End();
  /// The computer's clock was set by so much since the last frame.
  void SetClock(Time step);
  /// A look at all of them.
  void BeginStretch(Time now);

  /// There is something to tell since the last look: frames, or samples that were awaited till now.
  bool AnyInStretch() const;
  const std::vector<std::unique_ptr<StreamFigures>>& Streams() const { return streams_; }
  /// Sampled values frames of any kind, also those that belong to no stream.
  std::uint64_t Frames() const { return frames_; }
  /// Frames whose structure is not whole, and what is wrong with the latest of them.
  std::uint64_t Faulty() const { return faulty_; }
  sv::Fault LatestFault() const { return latestFault_; }
  /// Frames of streams beyond the greatest number.
  std::uint64_t NotFollowed() const { return notFollowed_; }
  std::uint32_t Frequency() const { return frequency_; }

 private:
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>{}(text);
    }
  };

  StreamFigures* Find(const sv::Frame& frame, std::string_view svId, Time arrived);
  const NominalWave& WaveOf(std::uint32_t rate);
  void Measure(const sv::Frame& frame, std::string_view svId, StreamFigures& stream);

  std::uint32_t frequency_ = 0;
  std::vector<std::unique_ptr<StreamFigures>> streams_;
  std::unordered_map<std::string, StreamFigures*, TextHash, std::equal_to<>> byKey_;
  /// By rate.
  std::map<std::uint32_t, NominalWave> waves_;
  /// The key of the frame in hand; it keeps its memory.
  std::string key_;
  std::uint64_t frames_ = 0;
  std::uint64_t faulty_ = 0;
  std::uint64_t notFollowed_ = 0;
  sv::Fault latestFault_ = sv::Fault::None;
};

}  // namespace console
