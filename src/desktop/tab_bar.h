#pragma once

#include <QTabBar>
#include <functional>

namespace desktop {

/// The strip of tabs. Each choice by hand is reported, also of the tab that is selected already;
/// the wheel and the arrow keys cannot run into the last tab, which ends the program.
class TabBar : public QTabBar {
  Q_OBJECT

 public:
  /// Pixels of the row; the views begin below it.
  static constexpr int Height = 44;

  explicit TabBar(QWidget* parent);

  /// Called with the index of the tab that the user chose.
  std::function<void(int)> Chosen;

  /// Shows which tab is selected, without a report.
  void ShowSelected(int index);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  QSize tabSizeHint(int index) const override;

 private:
  void Report(int index);
  void DrawTab(QPainter& painter, int index) const;

  /// Reports since the start, to see whether an event was reported already.
  int reports_ = 0;
};

}  // namespace desktop
