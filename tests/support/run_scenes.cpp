#include "support/run_scenes.h"

#include <gtest/gtest.h>

int RunScenes() {
  const int result = RUN_ALL_TESTS();
  if (result != 0) return result;
  return testing::UnitTest::GetInstance()->skipped_test_count() > 0 ? SkipCode : 0;
}
