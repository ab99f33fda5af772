#pragma once

#include <cstdint>
#include <exception>
#include <new>
#include <string>

#include "base/failure.h"
#include "platform/loop/program_ended.h"
#include "platform/loop/running_program.h"
#include "platform/services/dialogs.h"

namespace platform {

/// The one way from an event of the outside into the program: no exception gets past it. A failure
/// that no trap took shows the runtime's standard box and ends the program; from then on nothing is
/// let in.
class Guard {
 public:
  /// The exit code of a program that a failure ended.
  static constexpr int FailureExitCode = 1;

  Guard(Dialogs& dialogs, RunningProgram& program);

  template <typename Action>
  void operator()(Action&& action) {
    if (closed_) return;
    try {
      action();
    } catch (const ProgramEnded&) {
      closed_ = true;
    } catch (const Failure& failure) {
      EndOn(failure.Number(), failure.Text());
    } catch (const std::bad_alloc&) {
      const Failure failure(platform::failure::OutOfMemory);
      EndOn(failure.Number(), failure.Text());
    } catch (const std::exception& unexpected) {
      EndOn(InternalError, unexpected.what());
    }
  }

  /// Ends the program from outside of its handlers.
  void End(int exitCode);
  /// The program has ended or is about to.
  bool Closed() const { return closed_; }
  /// Leaves the handlers that were under way when the program ended inside of them.
  void LeaveIfClosed() const {
    if (closed_) throw ProgramEnded();
  }

 private:
  /// The runtime's number of an error of its own.
  static constexpr std::int32_t InternalError = 51;

  void EndOn(std::int32_t number, const std::string& text);

  Dialogs& dialogs_;
  RunningProgram& program_;
  bool closed_ = false;
};

}  // namespace platform
