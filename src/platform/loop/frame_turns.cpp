#include "platform/loop/frame_turns.h"

#include <chrono>

namespace platform {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds PollTime = 1ms;
/// The longest turn; the other events wait no longer.
constexpr std::chrono::nanoseconds TurnTime = 5ms;
/// A backlog of many blocks would otherwise nest one turn in the pump of another until the stack
/// ends.
constexpr int DeepestTurn = 16;

}  // namespace

FrameTurns::FrameTurns(FrameDelivery& frames, const Clock& clock, Guard& guard, Alarm& alarm)
    : frames_(frames), clock_(clock), guard_(guard), alarm_(alarm) {
  alarm_.Rings = [this] { Turn(); };
  frames_.Running = [this](bool running) { SetRunning(running); };
}

FrameTurns::~FrameTurns() {
  frames_.Running = nullptr;
  alarm_.Rings = nullptr;
}

void FrameTurns::SetRunning(bool running) {
  running_ = running;
  Poll();
}

void FrameTurns::Hold() {
  ++holds_;
  Poll();
}

void FrameTurns::Release() {
  --holds_;
  Poll();
}

void FrameTurns::Poll() {
  if (Delivering()) {
    alarm_.Set(PollTime);
  } else {
    alarm_.Stop();
  }
}

void FrameTurns::Turn() {
  if (!Delivering() || guard_.Closed()) return;
  // Set again before the frames are handled, so that a handler that pumps gets frames too.
  alarm_.Set(PollTime);
  if (depth_ >= DeepestTurn) return;
  ++depth_;
  guard_([this] { Deliver(); });
  --depth_;
}

void FrameTurns::Deliver() {
  const std::chrono::nanoseconds begun = clock_.Now();
  while (running_ && clock_.Now() - begun < TurnTime && frames_.DeliverOne()) {
  }
}

}  // namespace platform
