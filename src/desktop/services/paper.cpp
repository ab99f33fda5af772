#include "desktop/services/paper.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>

namespace desktop {

QPageLayout Paper::Layout(QPageLayout::Orientation orientation) const {
  return {Size, orientation, QMarginsF(), QPageLayout::Millimeter};
}

QRectF Paper::Room(QPageLayout::Orientation orientation) const {
  return Layout(orientation).fullRect().adjusted(Margin, Margin, -Margin, -Margin);
}

Paper PaperOf(const QString& printer) {
  const QPrinterInfo info = QPrinterInfo::printerInfo(printer);
  if (info.isNull()) return {};
  QPageLayout layout = QPrinter(info, QPrinter::HighResolution).pageLayout();
  layout.setUnits(QPageLayout::Millimeter);
  const QMarginsF least = layout.minimumMargins();
  return {layout.pageSize(),
          std::max({Paper().Margin, least.left(), least.top(), least.right(), least.bottom()})};
}

}  // namespace desktop
