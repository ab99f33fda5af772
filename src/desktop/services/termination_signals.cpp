#include "desktop/services/termination_signals.h"

#include <QtGlobal>
#include <array>
#include <cerrno>
#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>
#endif

namespace desktop {

#ifdef Q_OS_UNIX

namespace {

constexpr std::array<int, 3> Signals = {SIGTERM, SIGINT, SIGHUP};

/// The pipe from the signal handler, which may do nothing but write, to the event loop.
std::array<int, 2> channel = {-1, -1};

void OnSignal(int) {
  // The code that was interrupted may be about to read the number of its own error.
  const int before = errno;
  const char mark = 1;
  [[maybe_unused]] const ssize_t written = ::write(channel[1], &mark, 1);
  errno = before;
}

void Install(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  for (const int signal : Signals) ::sigaction(signal, &action, nullptr);
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> requested)
    : requested_(std::move(requested)) {
  if (::pipe(channel.data()) != 0) return;
  for (const int end : channel) {
    ::fcntl(end, F_SETFD, FD_CLOEXEC);
    ::fcntl(end, F_SETFL, O_NONBLOCK);
  }
  notifier_ = std::make_unique<QSocketNotifier>(channel[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
    char mark = 0;
    while (::read(channel[0], &mark, 1) == 1) {
    }
    requested_();
  });
  Install(OnSignal);
}

TerminationSignals::~TerminationSignals() {
  if (!notifier_) return;
  Install(SIG_DFL);
  notifier_.reset();
  for (int& end : channel) {
    ::close(end);
    end = -1;
  }
}

#else

// Elsewhere a request to terminate closes the window.
TerminationSignals::TerminationSignals(std::function<void()> requested)
    : requested_(std::move(requested)) {}

TerminationSignals::~TerminationSignals() = default;

#endif

}  // namespace desktop
