#pragma once

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QString>

namespace desktop {

/// A group of fields on a rounded ground: a heading, and rows of a caption and its field.
class Card : public QFrame {
  Q_OBJECT

 public:
  /// An empty heading takes no room.
  Card(const QString& heading, QWidget* parent);

  /// A row: the caption at the left, the field behind it, and what belongs to it at its right.
  void AddRow(QLabel* caption, QWidget* field, QWidget* behind = nullptr);
  /// A row over the whole width.
  void AddWide(QWidget* content);
  QGridLayout& Grid() { return *grid_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QGridLayout* grid_;
};

}  // namespace desktop
