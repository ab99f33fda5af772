#pragma once

#include <QComboBox>
#include <string>

#include "live/publisher.h"
#include "live/wire.h"
#include "window_scene.h"

namespace desktop {

/// The whole program in its window with the near end of a wire chosen as its adapter. It stands on
/// the Setup view.
class WireScene : public WindowScene {
 protected:
  WireScene() : WindowScene(adapters::ListNetworkInterfaces) {}

  void SetUp() override {
    const std::string reason = live::WhyNoWire();
    if (!reason.empty()) GTEST_SKIP() << reason;
    live::LayWire();
    Start();
    ClickTab(forms::tab::Setup);
    ChooseAdapter(live::NearEnd);
  }
  void TearDown() override {
    if (live::WhyNoWire().empty()) live::CutWire();
  }

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
