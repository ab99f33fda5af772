#pragma once

#include "base/failure.h"

namespace console {

/// What the program leaves to who started it.
enum class ExitCode : int {
  Done = 0,
  /// No frame came of what was asked for.
  NothingReceived = 1,
  /// An option, a name or a file's kind that there is not.
  WrongUse = 2,
  /// The right to capture or to read is missing.
  NotPermitted = 3,
  /// A file, a disk or an interface that fails.
  FileTrouble = 4,
  /// What was watched for has happened.
  Alarm = 5
};

/// What a failure that ends a command leaves.
ExitCode CodeOf(const platform::Failure& failure);

}  // namespace console
