#pragma once

#include <QObject>
#include <QString>
#include <QWidget>

namespace desktop {

/// The tip of a widget that has no room for all of its text: the tip that the widget was given, and
/// the whole text on a line below it.
class WholeTip : public QObject {
  Q_OBJECT

 public:
  explicit WholeTip(QWidget& widget);

  /// An empty text leaves the given tip alone.
  void Tell(const QString& whole);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Show();

  QWidget& widget_;
  /// The tip without the text.
  QString given_;
  QString whole_;
  bool showing_ = false;
};

}  // namespace desktop
