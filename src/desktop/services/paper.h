#pragma once

#include <QPageLayout>
#include <QPageSize>
#include <QRectF>
#include <QString>

namespace desktop {

/// The paper of a printer. What is not known of it is A4 with the margins of most printers.
struct Paper {
  QPageSize Size{QPageSize::A4};
  /// What the printer leaves free at the edges, in millimetres: the most that it does at any, since
  /// which edge is which depends on how the paper lies in it.
  double Margin = 5;

  /// The paper from edge to edge.
  QPageLayout Layout(QPageLayout::Orientation orientation) const;
  /// What can be printed on, in millimetres from the upper left corner of the paper.
  QRectF Room(QPageLayout::Orientation orientation) const;
};

/// The paper that lies in a printer of the system.
Paper PaperOf(const QString& printer);

}  // namespace desktop
