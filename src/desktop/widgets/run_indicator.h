#pragma once

#include <QWidget>

namespace desktop {

/// The ring of light round a run button that tells that capture is running. It stands behind the
/// button, centred on it, and is hidden while nothing is captured.
class RunIndicator : public QWidget {
  Q_OBJECT

 public:
  /// How far the ring reaches out beyond its button, in pixels of the smallest window.
  static constexpr int Reach = 9;

  /// Stands behind the button and follows it.
  explicit RunIndicator(QWidget& button);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace desktop
