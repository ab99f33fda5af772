#pragma once

#include <QComboBox>
#include <cmath>
#include <string>

#include "desktop/widgets/run_button.h"
#include "live/wire.h"
#include "window_scene.h"

namespace desktop {

/// The whole program in its window on the Setup view, with the near end of a virtual wire for its
/// network adapter.
class ProgramOnTheWire : public WindowScene {
 protected:
  ProgramOnTheWire() : WindowScene(adapters::ListNetworkInterfaces) {}

  void SetUp() override {
    const std::string reason = live::WhyNoWire();
    if (!reason.empty()) GTEST_SKIP() << reason;
    live::LayWire();
    Start();
    ClickTab(SetupTab);
    ChooseAdapter(live::NearEnd);
  }
  void TearDown() override {
    if (live::WhyNoWire().empty()) live::CutWire();
  }

  /// Presses the run button of the Values view, which stops a run that is under way.
  void Run() {
    ASSERT_TRUE(WaitFor([this] { return Find<RunButton>("CWButton4").isEnabled(); }));
    Click("CWButton4");
  }
  double Number(int channel) { return Reading(channel).remove(QLatin1Char(',')).toDouble(); }
  bool WaitForNumber(int channel, double expected) {
    return WaitFor([&] { return std::abs(Number(channel) - expected) < 0.0001 * expected; });
  }

 private:
  void ChooseAdapter(const std::string& name) {
    auto& list = Find<QComboBox>("Combo1");
    const int entry = list.findText(QString::fromStdString(name), Qt::MatchContains);
    ASSERT_GE(entry, 0) << "the interface is not in the list";
    QTest::keyClick(&list, Qt::Key_Home);
    for (int i = 0; i < entry; ++i) QTest::keyClick(&list, Qt::Key_Down);
    ASSERT_EQ(list.currentIndex(), entry);
  }
};

}  // namespace desktop
