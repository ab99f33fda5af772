#pragma once

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QString>

namespace desktop {

/// A rounded ground with an edge, for what belongs together.
class Ground : public QFrame {
  Q_OBJECT

 public:
  explicit Ground(QWidget* parent);
  void SetColour(const QColor& colour);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_;
};

/// A group of fields on a rounded ground: a heading, and rows of a caption and its field.
class Card : public Ground {
  Q_OBJECT

 public:
  /// An empty heading takes no room.
  Card(const QString& heading, QWidget* parent);

  /// A row: the caption at the left, the field behind it, and what belongs to it at its right.
  void AddRow(QLabel* caption, QWidget* field, QWidget* behind = nullptr);
  /// A row over the whole width.
  void AddWide(QWidget* content);
  QGridLayout& Grid() { return *grid_; }

 private:
  QGridLayout* grid_;
};

}  // namespace desktop
