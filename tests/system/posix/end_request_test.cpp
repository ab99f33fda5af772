#include "system/end_request.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>

namespace host {
namespace {

using namespace std::chrono_literals;

TEST(EndRequest, StaysOnceItCame) {
  const std::unique_ptr<EndRequest> end = NewEndRequest();
  EXPECT_FALSE(end->Came());

  std::raise(SIGINT);

  EXPECT_TRUE(end->Came());
  EXPECT_TRUE(end->Came());
}

TEST(EndRequest, EndsAWait) {
  const std::unique_ptr<EndRequest> end = NewEndRequest();
  end->Await(1ms);
  EXPECT_FALSE(end->Came());

  std::raise(SIGTERM);
  end->Await(24h);

  EXPECT_TRUE(end->Came());
}

}  // namespace
}  // namespace host
