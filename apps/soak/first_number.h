#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <iostream>
#include <string>
#include <utility>

namespace soak {

/// Tells how long a user waits from the press of RUN to the first number.
class FirstNumber {
 public:
  FirstNumber() {
    look_.setTimerType(Qt::PreciseTimer);
    look_.callOnTimeout([this] { Look(); });
  }

  /// From now on, until what is read differs from what stands there.
  void WaitFor(const char* view, std::function<std::string()> read) {
    view_ = view;
    read_ = std::move(read);
    before_ = read_();
    look_.start(1);
  }

  /// The press is before the wait, since it empties what stands there.
  void Press() { since_.start(); }

 private:
  void Look() {
    if (read_() == before_) return;
    look_.stop();
    std::cout << "first " << view_ << " " << static_cast<double>(since_.nsecsElapsed()) / 1e6
              << std::endl;
  }

  QTimer look_;
  QElapsedTimer since_;
  const char* view_ = "";
  std::function<std::string()> read_;
  std::string before_;
};

}  // namespace soak
