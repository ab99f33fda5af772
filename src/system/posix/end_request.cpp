#include "system/end_request.h"

#include <poll.h>

#include "system/posix/termination_signals.h"

namespace host {

namespace {

class SignalledEnd : public EndRequest {
 public:
  bool Came() override { return came_ = came_ || signals_.Take(); }
  void Await(std::chrono::nanoseconds time) override {
    pollfd request{signals_.Descriptor(), POLLIN, 0};
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(time).count();
    ::poll(&request, 1, static_cast<int>(milliseconds));
  }

 private:
  TerminationSignals signals_{SecondRequest::EndsAtOnce};
  bool came_ = false;
};

}  // namespace

std::unique_ptr<EndRequest> NewEndRequest() {
  return std::make_unique<SignalledEnd>();
}

}  // namespace host
