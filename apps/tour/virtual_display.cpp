#include "virtual_display.h"

#include <QStandardPaths>

namespace tour {

namespace {

constexpr int StartMs = 20'000;
constexpr int EndMs = 5'000;

QString Server() {
  return QStandardPaths::findExecutable("Xvfb");
}

}  // namespace

VirtualDisplay::VirtualDisplay() {
  // It takes a number that is free and tells it.
  server_.start(Server(), {"-displayfd", "1", "-screen", "0", "3840x2160x24", "-nolisten", "tcp"});
  if (!server_.waitForReadyRead(StartMs)) return;
  const QByteArray number = server_.readLine().trimmed();
  if (!number.isEmpty()) name_ = ":" + QString::fromLatin1(number);
}

VirtualDisplay::~VirtualDisplay() {
  server_.terminate();
  if (!server_.waitForFinished(EndMs)) server_.kill();
}

bool VirtualDisplay::Possible() {
  return !Server().isEmpty();
}

}  // namespace tour
