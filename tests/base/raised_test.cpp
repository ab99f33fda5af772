#include "base/raised.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using platform::Counted;
using platform::Raised;

TEST(RaisedFlag, IsTrueAsLongAsItIsHeld) {
  bool flag = false;
  {
    const Raised held(flag);
    EXPECT_TRUE(flag);
  }
  EXPECT_FALSE(flag);
}

TEST(RaisedFlag, StaysTrueBehindAnInnerOne) {
  bool flag = false;
  const Raised outer(flag);
  { const Raised inner(flag); }
  EXPECT_TRUE(flag);
}

TEST(RaisedFlag, FallsWhereTheRoutineIsLeftByAnException) {
  bool flag = false;
  int depth = 0;
  try {
    const Raised held(flag);
    const Counted counted(depth);
    EXPECT_EQ(depth, 1);
    throw std::runtime_error("left");
  } catch (const std::runtime_error&) {
    EXPECT_FALSE(flag);
    EXPECT_EQ(depth, 0);
  }
}

}  // namespace
