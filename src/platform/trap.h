#pragma once

#include <type_traits>

#include "platform/failure.h"
#include "platform/program.h"

namespace platform {

/// What a trap decides about the step that failed.
enum class Verdict { RetryStep, SkipStep, LeaveRoutine, EndProgram };

/// What a step says about the steps behind it.
enum class Flow { Next, Leave };

namespace detail {

template <typename Step>
Flow Perform(Step& step) {
  if constexpr (std::is_same_v<std::invoke_result_t<Step&>, Flow>) {
    return step();
  } else {
    step();
    return Flow::Next;
  }
}

template <typename Trap, typename Step>
bool RunStep(Program& program, Trap& trap, Step& step) {
  for (;;) {
    try {
      return Perform(step) == Flow::Next;
    } catch (const Failure& failure) {
      switch (trap(failure)) {
        case Verdict::RetryStep:
          break;
        case Verdict::SkipStep:
          return true;
        case Verdict::LeaveRoutine:
          return false;
        case Verdict::EndProgram:
          program.End();
      }
    }
  }
}

}  // namespace detail

/// Runs the steps of a routine in order under its one trap.
///
/// A step returns nothing or a `Flow`; `trap(const Failure&)` returns the `Verdict` on a step that
/// failed. The result is `Flow::Leave` when a step or the trap left the routine. Everything is
/// inlined, so that a routine without a failure pays nothing for its trap.
template <typename Trap, typename... Steps>
Flow RunSteps(Program& program, Trap trap, Steps... steps) {
  return (detail::RunStep(program, trap, steps) && ...) ? Flow::Next : Flow::Leave;
}

}  // namespace platform
