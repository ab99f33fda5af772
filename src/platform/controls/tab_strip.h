#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/control.h"

namespace platform {

/// One tab: its caption and the heading and text of its pop-up tip.
struct Tab {
  std::string Caption;
  std::string TipHeading;
  std::string TipText;
};

/// The strip of tabs, numbered from 1. `Changed` comes at every selection, by hand or from code,
/// also of the tab that is selected already.
class TabStrip : public Control {
 public:
  std::vector<Tab> Tabs;
  Property<std::int16_t> SelectedTab{1};
  /// The strip's background runs from the first colour to the second.
  Property<Rgb> ColorFrom{Rgb{255, 255, 255}};
  Property<Rgb> ColorTo{Rgb{255, 255, 255}};
  Event<> Changed;
  /// Whether a tab that the user chose may be selected at once. With False nothing happens for now;
  /// whoever says so selects the tab later, or never.
  std::function<bool(std::int16_t)> MayChoose;

  /// The user chose a tab, by mouse or by key, also the one that is selected already.
  void Choose(std::int16_t tab) {
    if (!MayChoose || MayChoose(tab)) SelectedTab = tab;
  }

  TabStrip() {
    SelectedTab.OnAssign([this](std::int16_t tab) {
      SelectedTab.Store(tab);
      Changed();
    });
  }
};

}  // namespace platform
