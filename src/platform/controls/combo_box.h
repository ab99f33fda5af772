#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "platform/controls/control.h"

namespace platform {

/// A drop-down list. `Click` comes whenever `ListIndex` is assigned; an index outside the list
/// raises failure 380. Before the first choice `ListIndex` is -1.
class ComboBox : public Control {
 public:
  Property<std::vector<std::string>> List;
  Property<std::int32_t> ListIndex{-1};
  Event<> Click;

  ComboBox() {
    ListIndex.OnAssign([this](std::int32_t index) {
      if (index < 0 || index >= ListCount()) throw Failure(failure::InvalidPropertyValue);
      ListIndex.Store(index);
      Click();
    });
  }

  /// Empties the list; nothing is chosen then, and no event comes.
  void Clear() {
    ListIndex.Store(-1);
    List = std::vector<std::string>();
  }
  std::int32_t ListCount() const { return static_cast<std::int32_t>(List.Get().size()); }
  void AddItem(std::string item) {
    std::vector<std::string> items = List;
    items.push_back(std::move(item));
    List = std::move(items);
  }
  /// The text of the chosen entry; empty before the first choice.
  std::string Text() const {
    return ListIndex < 0 ? std::string() : List.Get()[static_cast<std::size_t>(ListIndex.Get())];
  }
};

}  // namespace platform
