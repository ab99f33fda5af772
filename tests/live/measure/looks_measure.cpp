// How long a user waits on a bus whose senders are locked to one clock.

#include <QElapsedTimer>
#include <QPushButton>
#include <iostream>
#include <set>

#include "live/scenes/bus_scene.h"

namespace desktop {
namespace {

constexpr int MostPresses = 20;
/// Of so many senders each one's report is asked for.
constexpr int ReportedSenders = 7;

class LockedSenders : public BusScene, public testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    BusScene::SetUp();
    if (IsSkipped()) return;
    // More senders than these have no room 5 us apart.
    const std::string spacing = GetParam() <= 16 ? "--spacing 5" : "";
    ASSERT_NO_FATAL_FAILURE(Play("locked", static_cast<std::size_t>(GetParam()), spacing));
  }
  /// Presses RUN until the report is that of a station; how often it took.
  int PressesUntil(const std::string& id) {
    for (int presses = 1; presses <= MostPresses; ++presses) {
      lookedAt_.clear();
      Click("Command2");
      if (!WaitFor([this] { return Find<QWidget>("Command2").isVisible(); })) break;
      if (lookedAt_.contains(QString::fromStdString(id))) return presses;
    }
    return 0;
  }
};

TEST_P(LockedSenders, AreListed) {
  const auto senders = static_cast<std::size_t>(GetParam());
  const std::size_t most = 4 * senders;
  Search([&](QDialog& finder) {
    QElapsedTimer search;
    search.start();
    const auto listed = [&] { return static_cast<std::size_t>(ListOf(finder).count()); };
    const bool all =
        QTest::qWaitFor([&] { return listed() == senders; }, static_cast<int>(most) * 1000);
    std::cout << "finder, " << senders << " senders: " << listed() << " listed"
              << (all ? "" : " and no more") << " after " << Looks() << " looks in "
              << static_cast<double>(search.elapsed()) / 1000 << " s" << std::endl;
  });
}

TEST_P(LockedSenders, AreReported) {
  for (int number = 2; number <= ReportedSenders; ++number) {
    const std::string id = "BAY-0" + std::to_string(number);
    TypeStations("BAY-01", id);
    ClickTab(forms::tab::Report);
    std::cout << "report, " << GetParam() << " senders: ";
    for (const auto& [choice, station] : {std::pair{7, id}, {6, std::string("BAY-01")}}) {
      Click(Member("Option3", choice));
      std::cout << station << " after " << PressesUntil(station) << " presses  ";
    }
    std::cout << std::endl;
  }
}

INSTANTIATE_TEST_SUITE_P(OnABus, LockedSenders, testing::Values(7, 30));

}  // namespace
}  // namespace desktop
