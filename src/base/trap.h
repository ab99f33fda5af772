#pragma once

#include <functional>
#include <new>
#include <type_traits>
#include <utility>

#include "base/failure.h"
#include "base/program.h"

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

/// What an attempt at a step came to: it went through, or a trap has to decide.
enum class Outcome { Next, Leave, Again };

template <typename Trap>
Verdict Judge(Trap& trap, const Failure& failure, int attempt) {
  if constexpr (std::is_invocable_v<Trap&, const Failure&, int>) {
    return trap(failure, attempt);
  } else {
    return trap(failure);
  }
}

template <typename Trap>
Outcome OnFailure(Program& program, Trap& trap, const Failure& failure, int attempt) {
  const Verdict verdict = Judge(trap, failure, attempt);
  if (verdict == Verdict::EndProgram) program.End();
  if (verdict == Verdict::RetryStep) return Outcome::Again;
  return verdict == Verdict::SkipStep ? Outcome::Next : Outcome::Leave;
}

template <typename Trap, typename Step>
Flow RunStep(Program& program, Trap& trap, Step& step) {
  for (int attempt = 1;; ++attempt) {
    Outcome outcome = Outcome::Again;
    try {
      return Perform(step);
    } catch (const Failure& failure) {
      outcome = OnFailure(program, trap, failure, attempt);
    } catch (const std::bad_alloc&) {
      // The system ran out of memory in the midst of the step; for a trap it is a failure like any.
      outcome = OnFailure(program, trap, Failure(failure::OutOfMemory), attempt);
    }
    if (outcome != Outcome::Again) return outcome == Outcome::Next ? Flow::Next : Flow::Leave;
  }
}

}  // namespace detail

/// Runs the steps of a routine in order under its one trap.
///
/// A step returns nothing or a `Flow`; `trap(const Failure&)` returns the `Verdict` on a step that
/// failed. A trap may take the number of the attempt as well, 1 for the first: so it knows a step
/// that fails time after time. The result is `Flow::Leave` when a step or the trap left the
/// routine. Everything is inlined, so that a routine without a failure pays nothing for its trap.
template <typename Trap, typename... Steps>
Flow RunSteps(Program& program, Trap trap, Steps... steps) {
  return ((detail::RunStep(program, trap, steps) == Flow::Next) && ...) ? Flow::Next : Flow::Leave;
}

/// The routines of an object that run under one trap of its own. The trap is called for failures
/// alone, so its indirection costs nothing on the way through the steps.
class Routine {
 public:
  using Trap = std::function<Verdict(const Failure& failure, int attempt)>;

  Routine(Program& program, Trap trap) : program_(program), trap_(std::move(trap)) {}

  /// Runs steps as `RunSteps` does.
  template <typename... Steps>
  Flow operator()(Steps... steps) const {
    return RunSteps(
        program_, [this](const Failure& failure, int attempt) { return trap_(failure, attempt); },
        std::move(steps)...);
  }

 private:
  Program& program_;
  Trap trap_;
};

}  // namespace platform
