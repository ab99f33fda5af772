#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <QWidget>
#include <variant>
#include <vector>

#include "platform/controls/canvas.h"

namespace desktop {

/// A picture that is drawn call by call. It keeps the calls and paints them at the screen's own
/// resolution, so that it is crisp at every size; lines end at the edge of the picture, texts may
/// reach into the margin.
class PicturePad : public QWidget, public platform::Canvas {
  Q_OBJECT

 public:
  explicit PicturePad(QWidget* parent);

  /// Puts the picture, a square of so many pixels, at a place of its parent, with room for texts to
  /// its right and below it.
  void Place(QPoint topLeft, int side);
  /// Room for texts to the right of a picture of this side, in pixels.
  static int RightMargin(int side);

  void Clear() override;
  void Scale(platform::Point topLeft, platform::Point bottomRight) override;
  void ForeColor(platform::Rgb colour) override { fore_ = colour; }
  void DrawStyle(std::int16_t style) override { style_ = style; }
  void DrawWidth(std::int16_t width) override { width_ = width; }
  platform::Point Position() const override { return position_; }
  void MoveTo(platform::Point position) override { position_ = position; }
  void Line(platform::Point from, platform::Point to, std::optional<platform::Rgb> colour) override;
  void LineTo(platform::Point to, platform::Rgb colour) override { Line(position_, to, colour); }
  void Circle(platform::Point centre, float radius, platform::Rgb colour) override;
  void Print(const std::string& text) override;

  /// What the picture lies on; texts are cleared of lines with it.
  void SetGround(const QColor& ground);

  /// The texts that the picture shows, in the order of their drawing.
  QString Texts() const;
  /// Where each of these texts stands, in pixels of the widget.
  std::vector<QRectF> TextAreas() const;
  /// Side of the picture in pixels, without the room for texts.
  int Side() const { return side_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Stroke {
    platform::Point From;
    platform::Point To;
    QPen Pen;
  };
  struct Ring {
    platform::Point Centre;
    float Radius;
    QPen Pen;
  };
  struct Text {
    platform::Point Place;
    QString Words;
    QColor Colour;
    /// The text names an arrow that ends at its place.
    bool NamesArrow = false;
  };
  struct PlacedText {
    const Text* Source = nullptr;
    QRectF Box;
  };

  QPen PenOf(platform::Rgb colour) const;
  QPointF At(platform::Point point) const;
  QFont TextFont() const;
  static bool IsArrow(const Stroke& stroke) { return stroke.Pen.width() > 1; }
  void PaintArrows(QPainter& painter) const;
  /// Where the colour of a stroke would vanish.
  void PaintEdge(QPainter& painter, const Stroke& stroke, double width) const;
  void Paint(QPainter& painter, const Stroke& stroke) const;
  void Paint(QPainter& painter, const Ring& ring) const;
  /// Where each text stands: at its place, but clear of the outer circle below it, of arrows and of
  /// other texts.
  std::vector<PlacedText> PlaceTexts() const;
  QRectF BoxOf(const Text& text) const;
  QRectF BelowOuterRing(const Text& text, QRectF box) const;
  QRectF ClearOfArrows(const Text& text, const std::vector<PlacedText>& placed) const;
  bool IsFree(const QRectF& box, const std::vector<PlacedText>& placed) const;

  QColor ground_;
  int side_ = 1;
  platform::Point topLeft_{0, 0};
  platform::Point bottomRight_{1, 1};
  platform::Rgb fore_;
  std::int16_t style_ = Solid;
  std::int16_t width_ = 1;
  platform::Point position_;
  std::vector<std::variant<Stroke, Ring, Text>> calls_;
};

}  // namespace desktop
