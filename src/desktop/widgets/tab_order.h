#pragma once

#include <QWidget>
#include <vector>

namespace desktop {

/// Has the Tab key go from each of these widgets to the next.
inline void LeadTabs(const std::vector<QWidget*>& order) {
  for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

}  // namespace desktop
