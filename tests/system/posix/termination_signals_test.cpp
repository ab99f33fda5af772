#include "system/posix/termination_signals.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <csignal>

namespace host {
namespace {

bool Readable(const TerminationSignals& signals) {
  pollfd channel{signals.Descriptor(), POLLIN, 0};
  return ::poll(&channel, 1, 0) == 1;
}

TEST(Termination, ARequestCanBeWaitedForAndIsTakenOnce) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    TerminationSignals signals;
    EXPECT_FALSE(Readable(signals)) << signal;
    EXPECT_FALSE(signals.Take()) << signal;

    std::raise(signal);
    std::raise(signal);

    EXPECT_TRUE(Readable(signals)) << signal;
    EXPECT_TRUE(signals.Take()) << signal;
    EXPECT_FALSE(Readable(signals)) << signal;
    EXPECT_FALSE(signals.Take()) << signal;
  }
}

TEST(Termination, ASecondRequestEndsAtOnceWhereThatIsAskedFor) {
  EXPECT_EXIT(
      {
        TerminationSignals signals(SecondRequest::EndsAtOnce);
        std::raise(SIGINT);
        if (!signals.Take()) _exit(1);
        std::raise(SIGTERM);
      },
      testing::KilledBySignal(SIGTERM), "");
}

TEST(Termination, BehindTheEndARequestEndsTheProcessAsEver) {
  EXPECT_EXIT(
      {
        { const TerminationSignals signals; }
        std::raise(SIGTERM);
      },
      testing::KilledBySignal(SIGTERM), "");
}

}  // namespace
}  // namespace host
