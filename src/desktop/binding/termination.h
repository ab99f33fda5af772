#pragma once

#include <functional>
#include <memory>

namespace desktop {

/// Turns the system's requests to terminate into an event of the window's thread. One object a
/// program.
class Termination {
 public:
  explicit Termination(std::function<void()> requested);
  Termination(const Termination&) = delete;
  Termination& operator=(const Termination&) = delete;
  ~Termination();

 private:
  class Watch;
  std::unique_ptr<Watch> watch_;
};

}  // namespace desktop
