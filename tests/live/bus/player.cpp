#include "player.h"

namespace bus {

namespace {

/// Of so many frames of a network with swaps the last two change places.
constexpr std::int64_t SwappedEvery = 50;

std::int64_t WithSwaps(std::int64_t sample) {
  const std::int64_t place = sample % SwappedEvery;
  if (place == SwappedEvery - 2) return sample + 1;
  return place == SwappedEvery - 1 ? sample - 1 : sample;
}

/// A text as JSON has it.
std::string Quoted(const std::string& text) {
  constexpr const char* Digits = "0123456789abcdef";
  std::string quoted = "\"";
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x20 || c == '"' || c == '\\') {
      quoted += "\\u00";
      quoted += Digits[code >> 4U];
      quoted += Digits[code & 0xFU];
    } else {
      quoted += c;
    }
  }
  return quoted + "\"";
}

}  // namespace

Player::Player(FarEnd& wire, const Profile& profile, std::int64_t spacingUs)
    : wire_(wire), swapped_(profile.Swapped), spacingUs_(spacingUs) {
  for (const Sender& sender : profile.Senders) {
    Stream& stream = streams_.emplace_back(Stream{sender.Id, sender.Asdus, {}});
    if (sender.Doubled) {
      stream.Frames.emplace_back(sender, profile.Rate, Lan::A);
      stream.Frames.emplace_back(sender, profile.Rate, Lan::B);
    } else {
      stream.Frames.emplace_back(sender, profile.Rate, Lan::None);
    }
  }
  if (profile.Others) others_.emplace(profile.Senders.at(0).Id);
}

void Player::Play(SampleClock& clock, std::int64_t sample) {
  const std::int64_t sent = swapped_ ? WithSwaps(sample) : sample;
  std::int64_t place = 0;
  for (Stream& stream : streams_) {
    // A frame goes out with the last of its samples.
    if ((sent + 1) % stream.Asdus != 0) continue;
    if (spacingUs_ > 0) clock.WaitWithin(sample, spacingUs_ * place++);
    for (FrameEncoder& frames : stream.Frames) {
      wire_.Put(frames.FrameOf(sent));
      ++stream.Sent;
    }
    if (spacingUs_ > 0) wire_.Send();
  }
  if (others_) others_->Put(wire_, sample);
  wire_.Send();
}

std::string Player::Sent() const {
  std::string json = "{";
  for (const Stream& stream : streams_) {
    json += (json.size() > 1 ? ", " : "") + Quoted(stream.Id) + ": " + std::to_string(stream.Sent);
  }
  return json + "}";
}

}  // namespace bus
