#pragma once

#include <QListWidget>
#include <functional>
#include <vector>

#include "platform/controls/check_list.h"

namespace desktop {

/// A list of texts from the bus with a check box at each. Entries that come while the user is in
/// the list leave him where he is.
class CheckListView : public QListWidget {
  Q_OBJECT

 public:
  explicit CheckListView(QWidget* parent);

  /// Shows the entries as the program has them; no callback comes.
  void ShowItems(const std::vector<platform::CheckItem>& items);

  /// The user moved to an entry.
  std::function<void(int)> Moved;
  /// The user turned the check of an entry.
  std::function<void(int, bool)> Turned;
};

}  // namespace desktop
