#include "base/trap.h"

#include <gmock/gmock.h>

#include <new>
#include <stdexcept>

#include "support/fake_platform.h"

namespace {

using platform::Failure;
using platform::Flow;
using platform::RunSteps;
using platform::Verdict;
using testing::ElementsAre;

/// A routine of three steps under a trap with one verdict; the second step fails some times.
class Trap : public testing::Test {
 protected:
  Flow Routine(Verdict verdict, int failures) {
    return RunSteps(
        program,
        [&, verdict](const Failure& failure) {
          journal.push_back("trap " + std::to_string(failure.Number()));
          return verdict;
        },
        [&] { journal.emplace_back("first"); },
        [&, failures]() mutable {
          if (failures-- > 0) throw Failure(platform::failure::DiskFull);
          journal.emplace_back("second");
        },
        [&] { journal.emplace_back("third"); });
  }

  support::Journal journal;
  support::FakeProgram program{journal};
};

TEST_F(Trap, RunsTheStepsInOrder) {
  EXPECT_EQ(Routine(Verdict::EndProgram, 0), Flow::Next);

  EXPECT_THAT(journal, ElementsAre("first", "second", "third"));
}

TEST_F(Trap, RetryTriesTheFailingStepAloneAgain) {
  EXPECT_EQ(Routine(Verdict::RetryStep, 2), Flow::Next);

  EXPECT_THAT(journal, ElementsAre("first", "trap 61", "trap 61", "second", "third"));
}

TEST_F(Trap, SkipGoesOnWithTheNextStep) {
  EXPECT_EQ(Routine(Verdict::SkipStep, 1), Flow::Next);

  EXPECT_THAT(journal, ElementsAre("first", "trap 61", "third"));
}

TEST_F(Trap, LeaveRunsNoFurtherStep) {
  EXPECT_EQ(Routine(Verdict::LeaveRoutine, 1), Flow::Leave);

  EXPECT_THAT(journal, ElementsAre("first", "trap 61"));
}

TEST_F(Trap, EndEndsTheProgramAtOnce) {
  EXPECT_THROW(Routine(Verdict::EndProgram, 1), support::SceneEnded);

  EXPECT_THAT(journal, ElementsAre("first", "trap 61", "end"));
}

TEST_F(Trap, AStepCanLeaveTheRoutine) {
  const Flow flow = RunSteps(
      program, [](const Failure&) { return Verdict::RetryStep; },
      [&] {
        journal.emplace_back("first");
        return Flow::Next;
      },
      [&] {
        journal.emplace_back("second");
        return Flow::Leave;
      },
      [&] { journal.emplace_back("third"); });

  EXPECT_EQ(flow, Flow::Leave);
  EXPECT_THAT(journal, ElementsAre("first", "second"));
}

TEST_F(Trap, TakesTheVerdictFromTheNumberOfEachFailure) {
  const Flow flow = RunSteps(
      program,
      [](const Failure& failure) {
        return failure.Number() == platform::failure::HarmlessStop ? Verdict::SkipStep
                                                                   : Verdict::LeaveRoutine;
      },
      [] { throw Failure(platform::failure::HarmlessStop); },
      [&] { journal.emplace_back("second"); }, [] { throw Failure(platform::failure::Overflow); },
      [&] { journal.emplace_back("fourth"); });

  EXPECT_EQ(flow, Flow::Leave);
  EXPECT_THAT(journal, ElementsAre("second"));
}

TEST_F(Trap, WhatIsNoFailurePassesTheTrap) {
  const auto routine = [&] {
    RunSteps(
        program, [](const Failure&) { return Verdict::SkipStep; },
        [] { throw std::runtime_error("no failure"); });
  };

  EXPECT_THROW(routine(), std::runtime_error);
}

TEST_F(Trap, TellsHowOftenInARowAStepHasFailed) {
  std::vector<int> attempts;
  int failures = 3;
  RunSteps(
      program,
      [&](const Failure&, int attempt) {
        attempts.push_back(attempt);
        return failures > 0 ? Verdict::RetryStep : Verdict::SkipStep;
      },
      [&] {
        if (failures-- > 0) throw Failure(platform::failure::Overflow);
      },
      [&] { throw Failure(platform::failure::Overflow); });

  EXPECT_THAT(attempts, ElementsAre(1, 2, 3, 1));
}

TEST_F(Trap, TakesMissingMemoryAsAFailureOfItsOwnNumber) {
  Failure taken(0);
  const Flow flow = RunSteps(
      program,
      [&](const Failure& failure) {
        taken = failure;
        return Verdict::SkipStep;
      },
      [] { throw std::bad_alloc(); }, [&] { journal.emplace_back("second"); });

  EXPECT_EQ(flow, Flow::Next);
  EXPECT_EQ(taken.Number(), platform::failure::OutOfMemory);
  EXPECT_EQ(taken.Text(), "Out of memory");
  EXPECT_THAT(journal, ElementsAre("second"));
}

TEST_F(Trap, AnInnerTrapKeepsItsFailuresFromTheOuterOne) {
  RunSteps(
      program, [](const Failure&) { return Verdict::EndProgram; },
      [&] { Routine(Verdict::LeaveRoutine, 1); }, [&] { journal.emplace_back("outer"); });

  EXPECT_THAT(journal, ElementsAre("first", "trap 61", "outer"));
}

TEST_F(Trap, OfAnObjectServesAllItsRoutines) {
  const platform::Routine run(program, [&](const Failure& failure, int attempt) {
    journal.push_back("trap " + std::to_string(failure.Number()) + ", attempt " +
                      std::to_string(attempt));
    return attempt == 1 ? Verdict::RetryStep : Verdict::LeaveRoutine;
  });
  const auto fail = [] { throw Failure(platform::failure::DiskFull); };

  EXPECT_EQ(run(fail, [&] { journal.emplace_back("behind"); }), Flow::Leave);
  EXPECT_EQ(run([&] { journal.emplace_back("first"); }), Flow::Next);
  EXPECT_EQ(run(fail), Flow::Leave);

  EXPECT_THAT(journal, ElementsAre("trap 61, attempt 1", "trap 61, attempt 2", "first",
                                   "trap 61, attempt 1", "trap 61, attempt 2"));
}

TEST(Failures, CarriesTheStandardTextOfItsNumber) {
  EXPECT_EQ(Failure(13).Text(), "Type mismatch");
  EXPECT_EQ(Failure(6).Text(), "Overflow");
  EXPECT_EQ(Failure(9).Text(), "Subscript out of range");
  EXPECT_EQ(Failure(61).Text(), "Disk full");
  EXPECT_EQ(Failure(9, "row 400").Text(), "row 400");
}

}  // namespace
