#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "support/scene.h"

namespace report_tests {

using platform::CheckItem;
using support::SvFrame;
using std::chrono_literals::operator""ms;
using Ids = std::vector<std::string>;

/// The stream finder of a program at a bus that sends what the scene hands over.
class FinderScene : public ::testing::Test {
 protected:
  FinderScene() {
    scene.Start();
    scene.Select(forms::tab::Setup);
    main.Text1[14].Text = "MU02";
    scene.Journal.clear();
  }

  /// Presses the button; what `use` does happens while the window stands.
  void Find(const std::function<void()>& use) {
    look.Window.ShowModal = [&, use] {
      use();
      look.Window.Unload();
    };
    main.Command7.Click();
  }
  /// Presses the button; the search runs when `use` is called, and has measured the length.
  void Search(const std::function<void()>& use) {
    Find([&, use] {
      scene.Elapse(100ms);
      if (scene.State.PacketLengthPending) scene.Receive(SvFrame("LENGTH-OF-FRAMES").Bytes());
      use();
    });
  }
  /// A frame of a sender, and the pause until the next is looked for.
  void Sends(const std::string& id) {
    scene.Receive(SvFrame(id).Bytes());
    scene.Elapse(500ms);
  }
  std::vector<std::string> Listed() const {
    std::vector<std::string> ids;
    for (const CheckItem& item : look.List1.Items.Get()) ids.push_back(item.Text);
    return ids;
  }
  std::string Told() const { return look.FrameCount.Caption; }
  std::string Choice(std::size_t i) const { return main.Option3[i].Caption; }
  std::string Field(std::size_t i) const { return main.Text1[i].Text; }

  support::Scene scene;
  forms::Main& main = scene.Main;
  forms::IDlook& look = scene.App.Windows.IDlook;
};

}  // namespace report_tests
