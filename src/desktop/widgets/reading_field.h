#pragma once

#include <QColor>
#include <QWidget>
#include <functional>

namespace desktop {

/// One big reading, drawn like the display of a meter: digits at the right, a coloured bar for its
/// kind, and where it is asked for, room for a small line above them. A reading too long for the
/// field gets a smaller font; digits are never cut off.
class ReadingField : public QWidget {
  Q_OBJECT

 public:
  ReadingField(const QColor& mark, QWidget* parent);

  /// Called on a click, or on Space or Return while the field has the focus.
  std::function<void()> Clicked;

  const QString& Text() const { return text_; }
  void SetText(const QString& text);
  /// The height of the digits' font before it is made to fit, in pixels.
  void SetDigitSize(double pixels);
  /// Leaves room for a small line above the digits; without it they stand in the middle.
  void SetRoomAbove(bool room);
  /// Whether the reading is measured: one that rests while another is live steps back.
  enum class Life { Usual, Live, Resting };
  void SetLife(Life life);
  Life State() const { return life_; }
  /// The font that the present reading is drawn in.
  QFont FittingFont() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  double TextWidth() const;
  void PaintBar(QPainter& painter, const QRectF& face) const;
  /// Where digits of a font stand.
  double Baseline(const QFont& digits) const;

  QColor mark_;
  QString text_;
  double digitSize_ = 48;
  bool roomAbove_ = false;
  Life life_ = Life::Usual;
};

}  // namespace desktop
