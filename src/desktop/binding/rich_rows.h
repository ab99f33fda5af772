#pragma once

#include <QLabel>
#include <QPoint>
#include <QWidget>
#include <vector>

#include "desktop/binding/binder.h"

namespace desktop {

/// Rows of text whose places and fonts the program gives. All of them grow together with the page.
class RichRows {
 public:
  /// `origin` is the place of the page's corner in the rows' coordinates, in pixels.
  RichRows(Binder& binder, QWidget& page, QPoint origin);

  /// A row of foreign words loses its middle where it is too long.
  QLabel* Add(platform::Label& row, const QString& name, Wording wording);
  /// Lays the rows anew, `ratio` times as large as the program gives them.
  void Lay(double ratio);

 private:
  struct Row {
    platform::Label& Control;
    QLabel* Widget;
  };

  void Lay(const Row& row) const;

  Binder& binder_;
  QWidget& page_;
  QPoint origin_;
  std::vector<Row> rows_;
  double ratio_ = 1;
};

}  // namespace desktop
