#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/control.h"

namespace platform {

/// One entry of a check list.
struct CheckItem {
  std::string Text;
  bool Checked = false;
  friend bool operator==(const CheckItem&, const CheckItem&) = default;
  friend std::ostream& operator<<(std::ostream& out, const CheckItem& item) {
    return out << (item.Checked ? "[x] " : "[ ] ") << item.Text;
  }
};

/// A list with a check box at each entry. `Click` comes when the user moves to an entry or turns
/// its check; what the program does to the list raises none.
class CheckList : public Control {
 public:
  Property<std::vector<CheckItem>> Items;
  /// The entry that the user is on; -1 before the first.
  Property<std::int32_t> ListIndex{-1};
  Event<> Click;

  void Clear() {
    ListIndex = -1;
    Items = std::vector<CheckItem>();
  }
  void AddItem(const std::string& text) {
    std::vector<CheckItem> items = Items;
    items.push_back({text});
    Items = std::move(items);
  }
  void SetChecked(std::int32_t index, bool checked) {
    std::vector<CheckItem> items = Items;
    items.at(static_cast<std::size_t>(index)).Checked = checked;
    Items = std::move(items);
  }
  std::int32_t CheckedCount() const {
    std::int32_t count = 0;
    for (const CheckItem& item : Items.Get()) count += item.Checked ? 1 : 0;
    return count;
  }
  /// The user moves to an entry.
  void MoveTo(std::int32_t index) {
    ListIndex = index;
    Click();
  }
  /// The user turns the check of an entry, which takes him there.
  void Turn(std::int32_t index, bool checked) {
    ListIndex = index;
    SetChecked(index, checked);
    Click();
  }
};

}  // namespace platform
