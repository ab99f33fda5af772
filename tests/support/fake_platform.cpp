#include "support/fake_platform.h"

#include <stdexcept>

namespace support {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

void FakeEvents::Pump() {
  journal_.push_back("pump");
  ++pumps_;
  const auto [begin, end] = placed_.equal_range(pumps_);
  std::vector<std::function<void()>> events;
  for (auto at = begin; at != end; ++at) events.push_back(at->second);
  placed_.erase(begin, end);
  timers_.FireDue();
  for (const auto& event : events) event();
}

void FakeEvents::WaitMs(std::int32_t ms) {
  journal_.push_back("wait " + std::to_string(ms));
  clock_.Advance(milliseconds(ms));
}

platform::Answer FakeDialogs::Show(const platform::Message& message) {
  journal_.push_back("box " + message.Title);
  Shown.push_back(message);
  // A box that comes back for ever would hang the test.
  if (Shown.size() > 1000) throw std::runtime_error("too many boxes: " + message.Text);
  const platform::StandingBox standing(Stands);
  if (WhileOpen) WhileOpen();
  if (!Answers.empty()) {
    const platform::Answer answer = Answers.front();
    Answers.pop_front();
    return answer;
  }
  return message.BoxButtons == platform::Buttons::YesNo ? platform::Answer::Yes
                                                        : platform::Answer::Ok;
}

void FakeDialogs::ShowTimed(const platform::TimedMessage& message) {
  journal_.push_back("timed box " + message.Title);
  TimedShown.push_back(message);
  const platform::StandingBox standing(Stands);
  if (WhileOpen) WhileOpen();
}

std::string FakeStore::Get(const std::string& application, const std::string& section,
                           const std::string& key, const std::string& fallback) const {
  if (application != "Vornik" || section != "INI") return fallback;
  const auto text = Texts.find(key);
  return text == Texts.end() ? fallback : text->second;
}

void FakeStore::Set(const std::string& application, const std::string& section,
                    const std::string& key, const std::string& text) {
  if (application != "Vornik" || section != "INI") throw std::runtime_error("a foreign section");
  Texts[key] = text;
  Written.push_back(key);
}

FakePlatform::FakePlatform() {
  Dialogs.Stands = [this](bool stands) {
    if (stands) {
      Timers.Hold();
      Capture.Hold();
    } else {
      Timers.Release();
      Capture.Release();
    }
  };
  Folders.Stands = Dialogs.Stands;
}

void FakePlatform::Elapse(milliseconds time) {
  const nanoseconds end = Clock.Now() + time;
  for (auto next = Timers.NextDue(); next && *next <= end; next = Timers.NextDue()) {
    if (*next > Clock.Now()) Clock.Set(*next);
    Timers.FireDue();
  }
  if (Clock.Now() < end) Clock.Set(end);
}

}  // namespace support
