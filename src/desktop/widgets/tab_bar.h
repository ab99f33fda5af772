#pragma once

#include <QKeySequence>
#include <QList>
#include <QStringList>
#include <QTabBar>
#include <functional>

namespace desktop {

/// The strip of tabs. Each choice by hand is reported, also of the tab that is selected already;
/// the wheel and the arrow keys cannot run into the last tab, which ends the program.
class TabBar : public QTabBar {
  Q_OBJECT

 public:
  /// Height of the row in the smallest window, in pixels; the views begin below it.
  static constexpr int DesignHeight = 44;

  explicit TabBar(QWidget* parent);

  /// Adds a tab; gives its index.
  int Add(const QString& caption);

  /// Called with the index of the tab that the user chose.
  std::function<void(int)> Chosen;

  /// Shows which tab is selected, without a report.
  void ShowSelected(int index);
  /// Chooses a tab as a click would, also the one that is selected already.
  void Choose(int index);
  /// Leaves these keys to others: the tabs whose captions name them do not react on them. What
  /// stands on the screen stays.
  void LeaveKeys(const QList<QKeySequence>& keys);

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

  /// The captions of the design; the texts of the tabs lack the letters of keys that were left.
  QStringList captions_;
  /// Reports since the start, to see whether an event was reported already.
  int reports_ = 0;
};

}  // namespace desktop
