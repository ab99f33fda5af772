#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QWidget>

namespace tour {

/// What a walk saw: its steps, the numbers that it read, and its pictures.
class Record {
 public:
  /// Files go to `folder` and begin with `name`.
  Record(QString folder, QString name);

  /// Notes a step and whether it happened.
  void Step(const QString& step, bool happened);
  /// Notes a number; it counts as right within 0.01 % of what is expected.
  void Number(const QString& what, const QString& text, double expected);
  /// Notes what was measured; it is neither right nor wrong.
  void Measure(const QString& what, double value);
  /// Leaves a picture, numbered in the order of the walk; what cannot be seen on it as it is meant
  /// is a step that did not happen.
  void Picture(QWidget& widget, const QString& what);

  /// Leaves a copy of a file.
  void Keep(const QString& path, const QString& name);

  bool AllRight() const { return allRight_; }
  /// Writes the record beside the pictures; False where that was not possible.
  bool Save() const;

 private:
  QString PathOf(const QString& file) const;

  QString folder_;
  QString name_;
  QJsonArray steps_;
  QJsonArray numbers_;
  QJsonObject measures_;
  QJsonArray pictures_;
  bool allRight_ = true;
};

}  // namespace tour
