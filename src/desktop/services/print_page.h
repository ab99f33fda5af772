#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QRectF>
#include <QString>

namespace desktop {

/// A page as the list of what stands on it, so that nothing reaches a printer or a file before the
/// page is complete. Places are millimetres from the upper left corner of the paper.
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
  /// Paints the page; the device's origin is the corner of its paper.
  void Paint(QPainter& painter) const;

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

  QList<Picture> pictures_;
  QList<Text> texts_;
};

}  // namespace desktop
