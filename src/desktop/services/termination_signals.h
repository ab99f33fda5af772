#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace desktop {

/// Turns the system's requests to terminate into an event of the window's thread, so that capture
/// is stopped before the program goes. One object a program.
class TerminationSignals {
 public:
  explicit TerminationSignals(std::function<void()> requested);
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;
  ~TerminationSignals();

 private:
  std::function<void()> requested_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace desktop
