#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace bus {

using Bytes = std::vector<std::uint8_t>;
using Address = std::array<std::uint8_t, 6>;

/// One merging unit: what its frames look like and when it sends them.
struct Sender {
  /// Its place on the bus, from 0. Signals and addresses follow it.
  int Number = 0;
  std::string Id;
  Address Destination{};
  Address Source{};
  /// Priority, drop bit and VLAN, as they stand behind 8100; without, there is no tag.
  std::optional<std::uint16_t> Tag;
  int Asdus = 1;
  int Channels = 8;
  bool DataSet = false;
  bool RefreshTime = false;
  bool SampleRate = false;
  bool SampleMode = false;
  /// Each frame goes out in two networks, with the trailer of each.
  bool Doubled = false;
};

/// The networks of a doubled sender, as their trailers name them.
enum class Lan : std::uint8_t { None = 0, A = 0xA, B = 0xB };

/// The frames of a sender, one buffer for all of them: only counters and samples are written anew.
class FrameEncoder {
 public:
  /// `rate` is in samples a second.
  FrameEncoder(const Sender& sender, int rate, Lan lan);

  /// The frame whose last ASDU holds this sample.
  const Bytes& FrameOf(std::int64_t sample);

 private:
  /// Where the changing fields of an ASDU stand.
  struct Place {
    std::size_t Count;
    std::size_t Data;
  };

  Bytes Asdu() const;
  Bytes Data(int place) const;
  void FindPlaces();

  Sender sender_;
  int rate_;
  /// The samples of one period.
  std::vector<Bytes> period_;
  Bytes frame_;
  std::vector<Place> places_;
  std::size_t trailer_ = 0;
};

/// A field with its tag and its length in the shortest form.
Bytes Field(std::uint8_t tag, const Bytes& content);

}  // namespace bus
