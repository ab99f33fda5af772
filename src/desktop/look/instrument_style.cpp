#include "desktop/look/instrument_style.h"

#include <QAbstractItemView>
#include <QDialog>
#include <QPainter>
#include <QStyleOption>
#include <QTableView>

#include "desktop/look/control_paint.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/look/scroll_bar.h"
#include "desktop/look/sign_icon.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int IndicatorSpacing = 8;
constexpr int ButtonPadding = 16;
/// The least width of what answers a dialog.
constexpr int AnswerWidth = 108;
/// What opens a list, at its right end.
constexpr int ArrowWidth = 19;
constexpr int RowHeight = 26;
constexpr int RowPadding = 4;
/// Beside the text of an entry, and beside its box.
constexpr int EntryPadding = 3;
/// As wide as keeps square contents within rounded corners.
constexpr int AreaEdge = 3;
constexpr int ScrollBarWidth = 14;
constexpr int TipPadding = 4;
constexpr int HeaderMark = 9;
constexpr int SmallIcon = 16;
constexpr int LargeIcon = 32;
/// How far the style below draws the text of a list from the room that it is given.
constexpr int OwnListPadding = 1;
/// The same of a field.
constexpr int OwnFieldPadding = 2;

/// A text or a list of many lines with an edge of its own: it looks as a field does.
bool IsFieldArea(const QWidget* widget) {
  return qobject_cast<const QAbstractScrollArea*>(widget) != nullptr &&
         qobject_cast<const QTableView*>(widget) == nullptr;
}

/// What a scroll bar runs on: the ground of its field, or of the page that scrolls.
QPalette::ColorRole GroundOf(const QWidget* scrollBar) {
  const QWidget* area = scrollBar;
  while (area != nullptr && !IsFieldArea(area)) area = area->parentWidget();
  const auto* frame = qobject_cast<const QFrame*>(area);
  const bool page = frame == nullptr || frame->frameShape() == QFrame::NoFrame;
  return page ? QPalette::Window : QPalette::Base;
}

QRect ArrowOfList(const QRect& list) {
  const int width = look::Scaled(ArrowWidth);
  return {list.right() + 1 - width, list.top(), width, list.height()};
}

QRect TextOfList(const QRect& list) {
  // It starts where the text of a field does.
  const int left = look::Scaled(look::FieldPadding) - OwnListPadding;
  const int edge = look::LineWidth();
  return list.adjusted(left, edge, -look::Scaled(ArrowWidth) - edge, -edge);
}

QRect PartOfScrollBar(const QStyleOptionSlider& bar, QStyle::SubControl part) {
  const QRect slider = look::SliderOf(bar);
  const bool across = bar.orientation == Qt::Horizontal;
  QRect rest = bar.rect;
  switch (part) {
    case QStyle::SC_ScrollBarSlider:
      return slider;
    case QStyle::SC_ScrollBarGroove:
      return rest;
    case QStyle::SC_ScrollBarSubPage:
      across ? rest.setRight(slider.left() - 1) : rest.setBottom(slider.top() - 1);
      return rest;
    case QStyle::SC_ScrollBarAddPage:
      across ? rest.setLeft(slider.right() + 1) : rest.setTop(slider.bottom() + 1);
      return rest;
    default:
      return {};
  }
}

}  // namespace

InstrumentStyle::InstrumentStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void InstrumentStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                    QPainter* painter, const QWidget* widget) const {
  switch (element) {
    case PE_PanelLineEdit:
      look::DrawBox(*painter, option->rect, look::Field, option->state);
      break;
    case PE_IndicatorCheckBox:
      look::DrawCheck(*painter, *option);
      break;
    case PE_IndicatorRadioButton:
      look::DrawRadio(*painter, *option);
      break;
    case PE_PanelButtonCommand:
      look::DrawButton(*painter, *option);
      break;
    case PE_Frame:
      if (!IsFieldArea(widget)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        break;
      }
      look::DrawBox(*painter, option->rect, option->palette.color(QPalette::Base), option->state);
      break;
    case PE_FrameGroupBox:
      look::DrawGroup(*painter, *option);
      break;
    case PE_PanelTipLabel:
      look::DrawTip(*painter, *option);
      break;
    case PE_FrameFocusRect:
      look::DrawFocus(*painter, *option);
      break;
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
      break;
  }
}

void InstrumentStyle::drawControl(ControlElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
  if (element == CE_ProgressBarGroove) {
    look::DrawBox(*painter, option->rect, look::Field, State_Enabled);
  } else if (element == CE_ProgressBarContents && bar != nullptr) {
    look::DrawProgress(*painter, *bar);
  } else {
    QProxyStyle::drawControl(element, option, painter, widget);
  }
}

void InstrumentStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                         QPainter* painter, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control == CC_ScrollBar && bar != nullptr) {
    painter->fillRect(bar->rect, bar->palette.color(GroundOf(widget)));
    look::PaintScrollBar(*painter, *bar);
    return;
  }
  if (control != CC_ComboBox) {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    return;
  }
  look::DrawBox(*painter, option->rect, option->palette.color(QPalette::Base), option->state);
  look::DrawChevron(*painter,
                    proxy()->subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget),
                    option->state.testFlag(State_Enabled) ? look::Ink : look::DisabledText);
}

QRect InstrumentStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                      SubControl part, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control == CC_ScrollBar && bar != nullptr) return PartOfScrollBar(*bar, part);
  if (control == CC_ComboBox && part == SC_ComboBoxArrow) return ArrowOfList(option->rect);
  if (control == CC_ComboBox && part == SC_ComboBoxEditField) return TextOfList(option->rect);
  return QProxyStyle::subControlRect(control, option, part, widget);
}

QRect InstrumentStyle::subElementRect(SubElement element, const QStyleOption* option,
                                      const QWidget* widget) const {
  if (element != SE_LineEditContents) {
    return QProxyStyle::subElementRect(element, option, widget);
  }
  const int side = look::Scaled(look::FieldPadding) - OwnFieldPadding;
  const int edge = look::LineWidth();
  return option->rect.adjusted(side, edge, -side, -edge);
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
  const int height = look::Scaled(look::FieldHeight);
  switch (type) {
    case CT_PushButton: {
      const bool answer = widget != nullptr && qobject_cast<QDialog*>(widget->window()) != nullptr;
      return (size + QSize(look::Scaled(ButtonPadding), 0))
          .expandedTo({answer ? look::Scaled(AnswerWidth) : 0, height});
    }
    case CT_LineEdit:
    case CT_ComboBox:
      return size.expandedTo({0, height});
    case CT_ItemViewItem:
      return (size + QSize(look::Scaled(RowPadding), 0)).expandedTo({0, look::Scaled(RowHeight)});
    case CT_MenuItem:
      return size + QSize(look::Scaled(RowPadding), look::Scaled(RowPadding));
    default:
      return size;
  }
}

int InstrumentStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                 const QWidget* widget) const {
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return look::Scaled(look::IndicatorSize);
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
      return look::Scaled(IndicatorSpacing);
    case PM_DefaultFrameWidth:
      return IsFieldArea(widget) ? look::Scaled(AreaEdge)
                                 : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_ScrollBarExtent:
      return look::Scaled(ScrollBarWidth);
    case PM_ToolTipLabelFrameWidth:
      return look::Scaled(TipPadding);
    case PM_FocusFrameHMargin:
      return qobject_cast<const QAbstractItemView*>(widget) != nullptr
                 ? look::Scaled(EntryPadding)
                 : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_HeaderMarkSize:
      return look::Scaled(HeaderMark);
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
    case PM_ListViewIconSize:
    case PM_TabBarIconSize:
      return look::Scaled(SmallIcon);
    case PM_LargeIconSize:
    case PM_IconViewIconSize:
      return look::Scaled(LargeIcon);
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int InstrumentStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                               QStyleHintReturn* returned) const {
  // Mnemonics stay visible, so that the keyboard's way is found without trying.
  if (hint == SH_UnderlineShortcut) return 1;
  // An answer is one word; a sign beside some of them would make them look unlike.
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace desktop
