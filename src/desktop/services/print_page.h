#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QPicture>
#include <QRectF>
#include <QString>

namespace desktop {

/// A page as the list of what stands on it, so that nothing reaches a printer or a file before the
/// page is complete. Places are millimetres from the upper left corner of the paper.
///
/// Everything comes out within the room that a printer has on its paper. A text that would run over
/// the right end of it is narrowed, to half of its width at most. Where something has no place even
/// then, the whole page is made smaller by so much; else its millimetres are those of the paper.
class PrintPage {
 public:
  /// The font of a size in points, in the page's own fine units.
  static QFont Font(const QString& family, double points, bool bold, bool underline);
  /// Millimetres.
  static double TextWidth(const QString& text, const QFont& font);
  static double LineHeight(const QFont& font);

  /// `place` is the upper left corner of the text.
  void AddText(QPointF place, const QString& text, const QFont& font, const QColor& colour);
  void AddPicture(const QRectF& place, const QImage& picture);
  /// A drawing of an area of this size, which fills the place.
  void AddDrawing(const QRectF& place, const QPicture& drawing, QSize size);
  /// Paints the page; the device's origin is the corner of its paper.
  void Paint(QPainter& painter, const QRectF& room) const;

 private:
  struct Text {
    QPointF Place;
    QString Words;
    QFont Font;
    QColor Colour;
  };
  struct Picture {
    QRectF Place;
    QImage Image;
  };
  struct Drawing {
    QRectF Place;
    QPicture Calls;
    QSize Size;
  };

  /// Where a point of the page comes out: `At` plus the point times `Scale`, in millimetres.
  struct Fit {
    QPointF At;
    double Scale = 1;
  };

  /// From the first to the last place of the page, with texts as narrow as they may get.
  QRectF Reach() const;
  Fit FitInto(const QRectF& room) const;
  static void Paint(QPainter& painter, const Drawing& drawing);
  /// Paints a text that may reach as far as `right`.
  static void Paint(QPainter& painter, const Text& text, double right);

  QList<Picture> pictures_;
  QList<Drawing> drawings_;
  QList<Text> texts_;
};

}  // namespace desktop
