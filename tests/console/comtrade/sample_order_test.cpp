#include "console/comtrade/sample_order.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "console/comtrade/comtrade_file.h"
#include "support/fake_services.h"

namespace console {
namespace {

/// A stream whose samples hold their own counters, put in order; a missing one reads "-".
struct OrderScene {
  explicit OrderScene(std::int32_t round) : Order(round, File) {}

  std::string InOrder(const std::vector<std::int64_t>& counters) {
    for (const std::int64_t counter : counters) {
      const std::array<double, 1> stored{static_cast<double>(counter)};
      Order.Take(counter, stored);
    }
    Order.Finish();
    File.Finish();
    std::string text;
    const std::string& data = Files.Stored["c:\\StoredData\\a.dat"];
    for (std::size_t at = 0; at < data.size(); at = data.find('\n', at) + 1) {
      const std::size_t value = data.find(',', data.find(',', at) + 1) + 1;
      const std::string number = data.substr(value, data.find('\r', value) - value);
      text += (text.empty() ? "" : " ") + (number == "99999" ? "-" : number);
    }
    return text;
  }

  static ComtradeHead Head() {
    ComtradeHead head;
    head.Channels.resize(1);
    return head;
  }

  support::FakeFiles Files;
  ComtradeFile File{Files, Head(), ComtradeFiles::Pair, "c:\\StoredData\\a"};
  SampleOrder Order;
};

TEST(SampleOrder, LeavesThePlacesOfLostSamplesFree) {
  OrderScene scene(4000);

  EXPECT_EQ(scene.InOrder({3997, 3999, 2, 3}), "3997 - 3999 - - 2 3");
  EXPECT_EQ(scene.Order.Missing(), 3);
}

TEST(SampleOrder, PutsLateSamplesWhereTheyWereMissed) {
  OrderScene scene(4000);

  EXPECT_EQ(scene.InOrder({3998, 0, 3999, 3, 1, 2, 4}), "3998 3999 0 1 2 3 4");
  EXPECT_EQ(scene.Order.Late(), 3);
  EXPECT_EQ(scene.Order.Missing(), 0);
}

TEST(SampleOrder, KeepsTheFirstOfDoubledSamples) {
  OrderScene scene(4000);

  EXPECT_EQ(scene.InOrder({3999, 3999, 0, 0, 1, 0}), "3999 0 1");
  EXPECT_EQ(scene.Order.Doubled(), 3);
}

TEST(SampleOrder, LeavesOutWhatWasSentBeforeTheFirst) {
  OrderScene scene(4000);

  EXPECT_EQ(scene.InOrder({5, 4, 6}), "5 6");
  EXPECT_EQ(scene.Order.BeforeFirst(), 1);
}

TEST(SampleOrder, TakesTheLatestOf64ForLateAndWhatIsFartherBackForAhead) {
  OrderScene scene(200);

  scene.InOrder({100, 37, 36});

  EXPECT_EQ(scene.Order.BeforeFirst(), 1) << "37 is 63 back";
  EXPECT_EQ(scene.Order.Missing(), 135) << "36 is 136 ahead";
}

TEST(SampleOrder, LosesNothingAtTheEdgeOfWhatWaits) {
  OrderScene scene(4000);
  std::vector<std::int64_t> counters;
  for (int i = 0; i < 300; ++i) {
    if (i != 100) counters.push_back(i);
    if (i == 163) counters.push_back(100);
  }

  scene.InOrder(counters);

  EXPECT_EQ(scene.Order.Late(), 1);
  EXPECT_EQ(scene.Order.Missing(), 0);
  EXPECT_EQ(scene.File.Samples(), 300);
}

}  // namespace
}  // namespace console
