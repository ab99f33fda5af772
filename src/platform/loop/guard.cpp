#include "platform/loop/guard.h"

namespace platform {

Guard::Guard(Dialogs& dialogs, RunningProgram& program) : dialogs_(dialogs), program_(program) {}

void Guard::End(int exitCode) {
  closed_ = true;
  try {
    program_.EndWith(exitCode);
  } catch (const ProgramEnded&) {
    return;
  }
}

void Guard::EndOn(std::int32_t number, const std::string& text) {
  // Closed first: while the box stands, no timer, frame or click may reach the broken program.
  closed_ = true;
  dialogs_.Show({"Vornik", "Run-time error '" + std::to_string(number) + "':" + Crlf + Crlf + text,
                 Icon::Critical});
  End(FailureExitCode);
}

}  // namespace platform
