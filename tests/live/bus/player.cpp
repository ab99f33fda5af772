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

bool IsWithinSwap(std::int64_t sample) {
  return sample % SwappedEvery == SwappedEvery - 1;
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
    : wire_(wire), alwaysSwapped_(profile.Swapped), spacingUs_(spacingUs) {
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

void Player::Disturb(Disturbance disturbance, std::int64_t sample) {
  const bool swapped = disturbance_.Swapped;
  disturbance_ = disturbance;
  if (IsWithinSwap(sample)) disturbance_.Swapped = swapped;
}

void Player::Play(SampleClock& clock, std::int64_t sample) {
  const bool swapped = alwaysSwapped_ || disturbance_.Swapped;
  const std::int64_t sent = swapped ? WithSwaps(sample) : sample;
  if (sent < sample) ++lateSamples_;
  PutAll(clock, sample, sent);
  wire_.Send();
  if (!disturbance_.Twice) return;
  ++doubledSamples_;
  PutAll(clock, sample, sent);
  wire_.Send();
}

void Player::PutAll(SampleClock& clock, std::int64_t sample, std::int64_t sent) {
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
}

std::string Player::Sent() const {
  std::string json = "{";
  const auto add = [&](const std::string& name, std::int64_t count) {
    json += (json.size() > 1 ? ", " : "") + Quoted(name) + ": " + std::to_string(count);
  };
  for (const Stream& stream : streams_) add(stream.Id, stream.Sent);
  if (doubledSamples_ > 0) add("doubled", doubledSamples_);
  if (lateSamples_ > 0) add("out of order", lateSamples_);
  if (leftOutSamples_ > 0) add("left out", leftOutSamples_);
  return json + "}";
}

}  // namespace bus
