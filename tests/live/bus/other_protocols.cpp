#include "other_protocols.h"

#include <initializer_list>

namespace bus {

namespace {

/// In samples: trip messages 400 times a second, the clock and the client 100 times.
constexpr std::int64_t TripsEvery = 10;
constexpr std::int64_t OthersEvery = 40;
constexpr std::size_t Longer = 200;

Bytes Joined(std::initializer_list<Bytes> pieces) {
  Bytes all;
  for (const Bytes& piece : pieces) all.insert(all.end(), piece.begin(), piece.end());
  return all;
}

Bytes TextBytes(const std::string& text) {
  return {text.begin(), text.end()};
}

}  // namespace

OtherProtocols::OtherProtocols(const std::string& id) {
  const Bytes name = TextBytes(id);
  const Bytes trip = Field(
      0x61, Joined({Field(0x80, name), Field(0x81, {0x07, 0xD0}), Field(0x82, name),
                    Field(0x83, name), Field(0x85, {1}), Field(0x86, {9}), Field(0x87, {0})}));
  trips_ = Joined({{0x01, 0x0C, 0xCD, 0x01, 0x00, 0x01, 0x02, 0x00, 0x50, 0x01, 0x00, 0x01},
                   {0x81, 0x00, 0x80, 0x01, 0x88, 0xB8, 0x00, 0x01},
                   {0x00, static_cast<std::uint8_t>(8 + trip.size()), 0, 0, 0, 0},
                   trip});
  clock_ = Joined({{0x01, 0x1B, 0x19, 0x00, 0x00, 0x00, 0x02, 0x00, 0x50, 0x02, 0x00, 0x01},
                   {0x88, 0xF7, 0x00, 0x02, 0x00, 0x2C},
                   Bytes(40)});
  client_ = Joined({{0x02, 0x00, 0x50, 0x00, 0x00, 0x01, 0x02, 0x00, 0x50, 0x03, 0x00, 0x01},
                    {0x08, 0x00, 0x45, 0, 0, 200, 0, 0, 0x40, 0, 64, 6, 0, 0},
                    {10, 0, 0, 1, 10, 0, 0, 2, 0xC0, 0, 0, 102},
                    name});
  // Longer than any frame of samples.
  client_.resize(client_.size() + Longer);
}

void OtherProtocols::Put(FarEnd& wire, std::int64_t sample) const {
  if (sample % TripsEvery == 0) wire.Put(trips_);
  if (sample % OthersEvery == 1) wire.Put(clock_);
  if (sample % OthersEvery == 2) wire.Put(client_);
}

}  // namespace bus
