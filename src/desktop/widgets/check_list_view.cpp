#include "desktop/widgets/check_list_view.h"

#include <QSignalBlocker>

#include "base/shown_text.h"
#include "desktop/look/text.h"

namespace desktop {

CheckListView::CheckListView(QWidget* parent) : QListWidget(parent) {
  connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0 && Moved) Moved(row);
  });
  connect(this, &QListWidget::itemChanged, this, [this](const QListWidgetItem* item) {
    if (Turned) Turned(row(item), item->checkState() == Qt::Checked);
  });
}

void CheckListView::ShowItems(const std::vector<platform::CheckItem>& items) {
  const QSignalBlocker quiet(this);
  const int count = static_cast<int>(items.size());
  if (count < this->count()) clear();
  while (this->count() < count) {
    auto* item = new QListWidgetItem(this);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
  }
  for (int row = 0; row < count; ++row) {
    const platform::CheckItem& shown = items[static_cast<std::size_t>(row)];
    item(row)->setText(ToQt(platform::Escaped(shown.Text)));
    item(row)->setCheckState(shown.Checked ? Qt::Checked : Qt::Unchecked);
  }
  // The view hears of the changes by its model, which is not silenced.
}

}  // namespace desktop
