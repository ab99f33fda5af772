#include "recorder/reading/analysis_progress.h"

#include <gmock/gmock.h>

#include <vector>

namespace {

using packetroutines::AnalysisPass;
using ::testing::ElementsAre;

/// The values that a bar was painted with.
class Painted {
 public:
  Painted() {
    Bar.Repaint = [this] { Values.push_back(Bar.Value); };
  }

  platform::ProgressBar Bar;
  std::vector<std::int16_t> Values;
};

TEST(AnalysisProgress, FillsItsPartOfTheBar) {
  Painted painted;
  AnalysisPass pass(painted.Bar, 20, 60, 100);
  pass.Advance(25);
  pass.Advance(25);
  pass.Advance(50);
  EXPECT_THAT(painted.Values, ElementsAre(20, 29, 40, 60));
}

TEST(AnalysisProgress, PaintsALimitedNumberOfTimesWhateverTheSize) {
  Painted painted;
  AnalysisPass pass(painted.Bar, 0, 100, 100'000);
  for (int i = 0; i < 100'000; ++i) pass.Advance(1);
  EXPECT_EQ(painted.Values.size(), 51U);
  EXPECT_EQ(painted.Values.back(), 100);
}

TEST(AnalysisProgress, StaysFullWhereAFileHasMoreThanItsSize) {
  Painted painted;
  AnalysisPass pass(painted.Bar, 0, 100, 0);
  pass.Advance(10);
  pass.Advance(10);
  EXPECT_THAT(painted.Values, ElementsAre(0, 100));
}

}  // namespace
