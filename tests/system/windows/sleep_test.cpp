#include "system/sleep.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace host {
namespace {

/// What was asked of the system up to now, not for a moment alone. Asking changes nothing.
bool IsKeptAwake() {
  constexpr EXECUTION_STATE Lasting = ES_CONTINUOUS | ES_SYSTEM_REQUIRED;
  const EXECUTION_STATE before = SetThreadExecutionState(ES_CONTINUOUS);
  SetThreadExecutionState(before);
  return (before & Lasting) == Lasting;
}

TEST(Sleep, IsKeptOffUntilTheRecordingEnds) {
  const std::unique_ptr<platform::SleepInhibitor> awake = NewSleepInhibitor();
  EXPECT_FALSE(IsKeptAwake());

  awake->Inhibit("A recording runs");
  EXPECT_TRUE(IsKeptAwake());

  awake->Release();
  EXPECT_FALSE(IsKeptAwake());
}

}  // namespace
}  // namespace host
