#pragma once

#include <QProxyStyle>

namespace desktop {

/// The drawing of the standard controls: flat fields and boxes with one kind of edge and one kind
/// of focus ring, whose paddings, corners and lines follow the window. Everything else is left to
/// the style below, which looks the same on every desktop.
class InstrumentStyle : public QProxyStyle {
  Q_OBJECT

 public:
  InstrumentStyle();

  /// How much larger than in the design marks and buttons are drawn; `look/scale.h` sets it.
  double Scale() const { return scale_; }
  void SetScale(double scale) { scale_ = scale; }

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option,
                       const QWidget* widget) const override;
  QIcon standardIcon(StandardPixmap sign, const QStyleOption* option,
                     const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override;

 private:
  double scale_ = 1;
};

}  // namespace desktop
