#include "recorder/reading/sample_search.h"

#include <gmock/gmock.h>

#include <vector>

#include "support/failures.h"
#include "support/fake_services.h"

namespace packetroutines {

/// So that a scene compares gaps.
static bool operator==(const MetGap& a, const MetGap& b) {
  return a.Line == b.Line && a.Counter == b.Counter && a.Missing == b.Missing;
}

namespace {

using ::testing::ElementsAre;

/// A recording of these counters, and what a search of it finds.
struct SearchScene {
  SearchedSamples Search(const std::vector<std::int32_t>& counters, std::int32_t round,
                         const std::string& behind = "") {
    std::string& text = Files.Stored["recording"];
    for (const std::int32_t counter : counters) {
      text += "0;" + std::to_string(counter) + ";0;0;0;0;0;0;0;0\r\n";
    }
    text += behind;
    AnalysisPass pass(Bar, 0, 100, Files.FileSize("recording"));
    return SearchSamples(Files, "recording", pass, round,
                         [this](const MetGap& gap) { Gaps.push_back(gap); });
  }

  support::FakeFiles Files;
  platform::ProgressBar Bar;
  std::vector<MetGap> Gaps;
};

TEST(SampleSearch, HandsOverEachGapWithTheSampleBehindIt) {
  SearchScene scene;

  const SearchedSamples found = scene.Search({4797, 4799, 0, 1, 4, 5}, 4800);

  EXPECT_EQ(found.Gaps.Lines(), 6);
  EXPECT_EQ(found.Gaps.Lost(), 3);
  EXPECT_THAT(scene.Gaps, ElementsAre(MetGap{2, 4799, 1}, MetGap{5, 4, 2}));
}

TEST(SampleSearch, LeavesACutLineOut) {
  SearchScene scene;

  const SearchedSamples found = scene.Search({1, 2}, 4000, "0;9;0");

  EXPECT_TRUE(found.Cut);
  EXPECT_EQ(found.Gaps.Lines(), 2);
  EXPECT_THAT(scene.Gaps, ElementsAre());
}

TEST(SampleSearch, RefusesACounterBeyondTheRound) {
  SearchScene scene;

  EXPECT_EQ(support::FailureOf([&] {
              scene.Search({1, 4800}, 4800);
            }),
            platform::failure::SubscriptOutOfRange);
}

}  // namespace
}  // namespace packetroutines
