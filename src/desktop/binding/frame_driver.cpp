#include "desktop/binding/frame_driver.h"

#include <QElapsedTimer>

namespace desktop {

namespace {

constexpr int PollMs = 1;
/// The longest turn; the window's events wait no longer.
constexpr qint64 TurnNs = 5'000'000;
/// A backlog of many blocks would otherwise nest one turn in the pump of another until the stack
/// ends.
constexpr int DeepestTurn = 16;

}  // namespace

FrameDriver::FrameDriver(platform::FrameDelivery& frames, Guard& guard)
    : frames_(frames), guard_(guard) {
  poll_.setSingleShot(true);
  poll_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&poll_, &QTimer::timeout, &poll_, [this] { Turn(); });
  frames_.Running = [this](bool running) { SetRunning(running); };
}

FrameDriver::~FrameDriver() {
  frames_.Running = nullptr;
}

void FrameDriver::SetRunning(bool running) {
  running_ = running;
  Poll();
}

void FrameDriver::Hold() {
  ++holds_;
  Poll();
}

void FrameDriver::Release() {
  --holds_;
  Poll();
}

void FrameDriver::Poll() {
  if (Delivering()) {
    poll_.start(PollMs);
  } else {
    poll_.stop();
  }
}

void FrameDriver::Turn() {
  if (!Delivering() || guard_.Closed()) return;
  // Armed again before the frames are handled, so that a handler's own event loop gets frames too.
  poll_.start(PollMs);
  if (depth_ >= DeepestTurn) return;
  ++depth_;
  guard_([this] { Deliver(); });
  --depth_;
}

void FrameDriver::Deliver() {
  QElapsedTimer spent;
  spent.start();
  while (running_ && spent.nsecsElapsed() < TurnNs && frames_.DeliverOne()) {
  }
}

}  // namespace desktop
