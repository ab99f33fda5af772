#pragma once

#include <chrono>
#include <memory>

namespace host {

/// The user's request to end a program without a window: Ctrl+C, or the system's request to
/// terminate. It waits until the program takes it; a second one ends the process at once.
class EndRequest {
 public:
  virtual ~EndRequest() = default;
  /// True from the first request on.
  virtual bool Came() = 0;
  /// Blocks for so long, or until a request comes.
  virtual void Await(std::chrono::nanoseconds time) = 0;
};

/// One object a program.
std::unique_ptr<EndRequest> NewEndRequest();

}  // namespace host
