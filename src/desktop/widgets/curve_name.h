#pragma once

#include <QLabel>

namespace desktop {

/// A line of a graph's legend: a swatch of the curve and its name, which loses its end where there
/// is no room for it.
class CurveName : public QLabel {
  Q_OBJECT

 public:
  explicit CurveName(QWidget* parent);

  void SetColour(const QColor& colour);
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_;
};

}  // namespace desktop
