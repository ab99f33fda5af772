#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <QWidget>
#include <variant>
#include <vector>

#include "platform/controls/drawn_picture.h"

namespace desktop {

/// Shows a picture that is drawn call by call. It paints the calls at the screen's own resolution,
/// so that it is crisp at every size, with lines that grow with it; lines end at the edge of the
/// picture, texts may reach into the margin.
class PicturePad : public QWidget {
  Q_OBJECT

 public:
  PicturePad(platform::DrawnPicture& picture, QWidget* parent);
  ~PicturePad() override;

  /// Puts the picture, a square of so many pixels, at a place of its parent, with room for texts to
  /// its right and below it.
  void Place(QPoint topLeft, int side);
  /// Room for texts to the right of a picture of this side, in pixels.
  static int RightMargin(int side);

  /// What the picture lies on; texts have a halo of it.
  void SetGround(const QColor& ground);

  /// The texts that the picture shows, in the order of their drawing.
  QString Texts();
  /// Where each of these texts stands, in pixels of the widget.
  std::vector<QRectF> TextAreas();
  /// Side of the picture in pixels, without the room for texts.
  int Side() const { return side_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Stroke {
    platform::Point From;
    platform::Point To;
    QPen Pen;
    /// Thicker than the lines of the background.
    bool Arrow = false;
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

  /// Brings `shapes_` up to date with the calls.
  void TakeCalls();
  void Take(const platform::draw_call::Line& line);
  void Take(const platform::draw_call::Print& print);
  QPen PenOf(platform::Rgb colour) const;
  QPointF At(platform::Point point) const;
  QFont TextFont() const;
  /// What a pixel of a line counts: lines grow with the picture.
  double StrokeScale() const;
  void PaintBackground(QPainter& painter) const;
  /// Clears the lines of the background round the texts, and closes the outer circle over that.
  void PaintHalos(QPainter& painter, const std::vector<PlacedText>& texts) const;
  void PaintArrows(QPainter& painter) const;
  /// Where the colour of a stroke would vanish.
  void PaintEdge(QPainter& painter, const Stroke& stroke, double width) const;
  void Paint(QPainter& painter, const Stroke& stroke) const;
  void Paint(QPainter& painter, const Ring& ring) const;
  /// The outer circle in pixels; a radius of 0 where there is none.
  struct Rim {
    QPointF Centre;
    double Radius = 0;
  };
  Rim OuterRim() const;
  /// A text that starts beyond the outer circle.
  bool IsBeyond(const Text& text, const Rim& rim) const;
  /// Where each text stands: at its place, but clear of the outer circle, of arrows and of other
  /// texts.
  std::vector<PlacedText> PlaceTexts() const;
  void PlaceBesideArrows(std::vector<PlacedText>& placed) const;
  /// Texts of one height below the circle stay on one height.
  void LevelTexts(std::vector<PlacedText>& placed, const Rim& rim) const;
  QRectF BoxOf(const Text& text) const;
  QRectF BelowRim(const Rim& rim, QRectF box) const;
  QRectF WithinRim(const Text& text, const Rim& rim, QRectF box) const;
  QRectF ClearOfArrows(const Text& text, const std::vector<PlacedText>& placed) const;
  bool IsFree(const QRectF& box, const std::vector<PlacedText>& placed) const;

  QColor ground_;
  int side_ = 1;
  platform::DrawnPicture& picture_;
  /// The picture changed since its calls were taken.
  bool stale_ = true;
  platform::DrawnPicture::Tools tools_;
  platform::Point position_;
  std::vector<std::variant<Stroke, Ring, Text>> shapes_;
};

}  // namespace desktop
