#pragma once

#include <QKeyEvent>
#include <QLabel>
#include <QObject>
#include <QPainter>
#include <QString>
#include <vector>

namespace desktop {

/// Lets the user pick rows of labels on a page, by mouse or by key, and copy them as lines of text:
/// Ctrl+C and a menu copy what is picked, and "Copy all" every row. The page has the focus and
/// paints what is picked; the labels stay as they are.
class RowPicker : public QObject {
  Q_OBJECT

 public:
  explicit RowPicker(QWidget& page);

  /// The labels of one row from left to right, below the rows before it.
  void Add(std::vector<QLabel*> row);
  /// Marks the picked rows, from the left edge of an area to its right one.
  void Paint(QPainter& painter, const QRectF& area) const;
  /// The lines of the rows that are picked, or of all of them; what is hidden or empty is left out.
  QString Lines(bool all) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Press(QObject* watched, QEvent* event);
  bool Key(const QKeyEvent& key);
  void ShowMenu(QPoint place);
  void Pick(int row, bool further);
  void PickAll();
  void Copy(bool all);
  /// The row at a height of the page; -1 where there is none.
  int RowAt(int y) const;
  QRect Place(int row) const;
  bool IsPicked(int row) const;
  int Count() const { return static_cast<int>(rows_.size()); }

  QWidget& page_;
  std::vector<std::vector<QLabel*>> rows_;
  /// Where the picking began and where it is; -1 while none is picked.
  int anchor_ = -1;
  int current_ = -1;
};

}  // namespace desktop
