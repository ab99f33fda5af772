#include "desktop/look/instrument_style.h"

#include <QPainter>
#include <QStyleOption>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/look/sign_icon.h"

namespace desktop {

namespace {

constexpr int IndicatorSize = 17;
constexpr int IndicatorSpacing = 8;
constexpr int ButtonHeight = 30;
constexpr int ButtonPadding = 16;

/// A rounded box whose edge tells whether it has the focus.
void DrawBox(QPainter& painter, const QRect& area, const QColor& ground,
             const QStyle::State& state) {
  const bool enabled = state.testFlag(QStyle::State_Enabled);
  const bool focus = enabled && state.testFlag(QStyle::State_HasFocus);
  const bool hover = enabled && state.testFlag(QStyle::State_MouseOver);
  const double width = focus ? 2 : 1;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(focus ? look::Accent : hover ? look::QuietText : look::StrongEdge, width));
  painter.setBrush(enabled ? ground : look::Page);
  const double inset = width / 2;
  painter.drawRoundedRect(QRectF(area).adjusted(inset, inset, -inset, -inset), look::Corner - 1,
                          look::Corner - 1);
  painter.restore();
}

void DrawChevron(QPainter& painter, const QRect& area, const QColor& colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const double scale = look::Scale();
  painter.setPen(QPen(colour, 1.6 * scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF tip = QRectF(area).center() + QPointF(0, 2.5 * scale);
  const double reach = 4.5 * scale;
  const QPointF corners[] = {tip + QPointF(-reach, -reach), tip, tip + QPointF(reach, -reach)};
  painter.drawPolyline(corners, 3);
  painter.restore();
}

void DrawTick(QPainter& painter, const QRect& area) {
  const QRectF box(area);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look::Card, 2 * look::Scale(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF corners[] = {box.topLeft() + QPointF(box.width() * 0.24, box.height() * 0.52),
                             box.topLeft() + QPointF(box.width() * 0.43, box.height() * 0.71),
                             box.topLeft() + QPointF(box.width() * 0.77, box.height() * 0.31)};
  painter.drawPolyline(corners, 3);
  painter.restore();
}

void DrawCheck(QPainter& painter, const QStyleOption& option) {
  const bool on = option.state.testFlag(QStyle::State_On);
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  DrawBox(painter, option.rect, on && enabled ? look::Accent : look::Card, option.state);
  if (on) DrawTick(painter, option.rect);
}

void DrawRadio(QPainter& painter, const QStyleOption& option) {
  const bool on = option.state.testFlag(QStyle::State_On);
  const bool marked = option.state.testFlag(QStyle::State_HasFocus) || on;
  const QRectF circle = QRectF(option.rect).adjusted(1, 1, -1, -1);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(marked ? look::Accent : look::StrongEdge, marked ? 2 : 1));
  painter.setBrush(look::Card);
  painter.drawEllipse(circle);
  if (on) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(look::Accent);
    const double rim = circle.width() * 0.27;
    painter.drawEllipse(circle.adjusted(rim, rim, -rim, -rim));
  }
  painter.restore();
}

void DrawButton(QPainter& painter, const QStyleOption& option) {
  const bool down = option.state.testFlag(QStyle::State_Sunken);
  DrawBox(painter, option.rect, down ? look::Pressed : look::Panel, option.state);
}

void DrawFocus(QPainter& painter, const QStyleOption& option) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look::Accent, 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.75, 0.75, -0.75, -0.75), 3, 3);
  painter.restore();
}

}  // namespace

InstrumentStyle::InstrumentStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void InstrumentStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                    QPainter* painter, const QWidget* widget) const {
  switch (element) {
    case PE_PanelLineEdit:
      DrawBox(*painter, option->rect, look::Field, option->state);
      break;
    case PE_IndicatorCheckBox:
      DrawCheck(*painter, *option);
      break;
    case PE_IndicatorRadioButton:
      DrawRadio(*painter, *option);
      break;
    case PE_PanelButtonCommand:
      DrawButton(*painter, *option);
      break;
    case PE_FrameFocusRect:
      DrawFocus(*painter, *option);
      break;
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
      break;
  }
}

void InstrumentStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                         QPainter* painter, const QWidget* widget) const {
  if (control != CC_ComboBox) {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    return;
  }
  DrawBox(*painter, option->rect, option->palette.color(QPalette::Base), option->state);
  DrawChevron(*painter, proxy()->subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget),
              option->state.testFlag(State_Enabled) ? look::Ink : look::DisabledText);
}

QRect InstrumentStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                      SubControl part, const QWidget* widget) const {
  const QRect area = QProxyStyle::subControlRect(control, option, part, widget);
  // The text of a list starts where the text of a field does.
  const bool text = control == CC_ComboBox && part == SC_ComboBoxEditField;
  return text ? area.adjusted(2, 0, 0, 0) : area;
}

QIcon InstrumentStyle::standardIcon(StandardPixmap sign, const QStyleOption* option,
                                    const QWidget* widget) const {
  switch (sign) {
    case SP_MessageBoxCritical:
      return SignIcon(look::StopRed, QLatin1Char('!'));
    case SP_MessageBoxWarning:
      return SignIcon(look::VoltageMark, QLatin1Char('!'));
    case SP_MessageBoxInformation:
      return SignIcon(look::Accent, QLatin1Char('i'));
    case SP_MessageBoxQuestion:
      return SignIcon(look::Accent, QLatin1Char('?'));
    default:
      return QProxyStyle::standardIcon(sign, option, widget);
  }
}

QSize InstrumentStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                        const QSize& contents, const QWidget* widget) const {
  const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  if (type != CT_PushButton) return size;
  // As high as the fields beside it.
  return (size + QSize(look::Scaled(ButtonPadding), 0)).expandedTo({0, look::Scaled(ButtonHeight)});
}

int InstrumentStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                 const QWidget* widget) const {
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return look::Scaled(IndicatorSize);
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
      return look::Scaled(IndicatorSpacing);
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int InstrumentStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                               QStyleHintReturn* returned) const {
  // Mnemonics stay visible, so that the keyboard's way is found without trying.
  if (hint == SH_UnderlineShortcut) return 1;
  return QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace desktop
