#pragma once

#include "support/failing_files.h"

namespace recorder_tests {

/// A kind of work on files: how often it was asked for, and the one that fails.
struct Work {
  const char* Name;
  int support::FailingFiles::*Count;
  int support::FailingFiles::*Failing;
};

}  // namespace recorder_tests
