#pragma once

#include <QLabel>

namespace desktop {

/// A note beside a field that tells what the user can do; without a text it is not there.
class AdviceNote : public QLabel {
  Q_OBJECT

 public:
  explicit AdviceNote(QWidget* parent);
  void SetAdvice(const QString& advice);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
