#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <vector>

namespace desktop {

/// A small card with what curves say at one place: a heading, and a row a curve with its swatch,
/// its name and its value. It takes no mouse, so that what it stands on keeps the pointer.
class ReadOutCard : public QWidget {
  Q_OBJECT

 public:
  struct Row {
    QColor Colour;
    QString Name;
    QString Value;
  };

  explicit ReadOutCard(QWidget* parent);

  /// Shows these words, as large as they need; a long name loses its end.
  void Tell(const QString& heading, const std::vector<Row>& rows);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int RowHeight() const;
  int NameWidth() const;
  int ValueWidth() const;

  QString heading_;
  std::vector<Row> rows_;
};

}  // namespace desktop
