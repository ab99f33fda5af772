#include "system/posix/termination_signals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace host {

namespace {

constexpr std::array<int, 3> Signals = {SIGTERM, SIGINT, SIGHUP};

/// The pipe from the signal handler, which may do nothing but write, to the event loop.
std::array<int, 2> channel = {-1, -1};

void Install(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  for (const int signal : Signals) ::sigaction(signal, &action, nullptr);
}

void OnSignal(int) {
  // The code that was interrupted may be about to read the number of its own error.
  const int before = errno;
  const char mark = 1;
  [[maybe_unused]] const ssize_t written = ::write(channel[1], &mark, 1);
  errno = before;
}

void OnOnlySignal(int signal) {
  const int before = errno;
  // The next one is the system's to serve.
  Install(SIG_DFL);
  errno = before;
  OnSignal(signal);
}

}  // namespace

TerminationSignals::TerminationSignals(SecondRequest second) {
  if (::pipe(channel.data()) != 0) return;
  for (const int end : channel) {
    ::fcntl(end, F_SETFD, FD_CLOEXEC);
    ::fcntl(end, F_SETFL, O_NONBLOCK);
  }
  Install(second == SecondRequest::Waits ? OnSignal : OnOnlySignal);
}

TerminationSignals::~TerminationSignals() {
  if (Descriptor() < 0) return;
  Install(SIG_DFL);
  for (int& end : channel) {
    ::close(end);
    end = -1;
  }
}

int TerminationSignals::Descriptor() const {
  return channel[0];
}

bool TerminationSignals::Take() {
  bool came = false;
  for (char mark = 0; ::read(channel[0], &mark, 1) == 1;) came = true;
  return came;
}

}  // namespace host
