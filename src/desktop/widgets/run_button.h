#pragma once

#include <QAbstractButton>
#include <QColor>

namespace desktop {

/// The two-position run button: each position has its face, a sign and a word for what a press does
/// next. It shows the position it is told and never changes it by itself.
class RunButton : public QAbstractButton {
  Q_OBJECT

 public:
  explicit RunButton(QWidget* parent);

  void SetColour(const QColor& colour);
  void SetFaces(const QString& off, const QString& on);
  /// True shows the face of the running position.
  void SetPosition(bool on);
  bool Position() const { return on_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void ShowFace();
  void DrawSign(QPainter& painter, const QRectF& area) const;
  /// The word's font, as large as the button's height and width allow.
  QFont WordFont(double room) const;

  QColor colour_;
  QString offFace_;
  QString onFace_;
  bool on_ = false;
};

}  // namespace desktop
