#include "console/exit_code.h"

namespace console {

namespace failure = platform::failure;

ExitCode CodeOf(const platform::Failure& failure) {
  switch (failure.Number()) {
    case failure::PermissionDenied:
      return ExitCode::NotPermitted;
    case failure::FilterRefused:
      return ExitCode::WrongUse;
    default:
      return ExitCode::FileTrouble;
  }
}

}  // namespace console
