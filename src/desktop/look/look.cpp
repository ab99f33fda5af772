#include "desktop/look/look.h"

#include <QEvent>
#include <QFontDatabase>
#include <QPalette>
#include <QSvgRenderer>
#include <QToolTip>
#include <QWidget>

#include "desktop/look/instrument_style.h"
#include "desktop/look/scale.h"

// In a library the pictures must be asked for by name, and outside of any namespace.
static void InitPictures() {
  Q_INIT_RESOURCE(resources);
}

namespace desktop::look {

namespace {

constexpr const char* FixedFamily = "Courier New";

const QString& Family() {
  static const QString family = [] {
    for (const char* name : {"Verdana", "DejaVu Sans"}) {
      if (QFontDatabase::hasFamily(QLatin1String(name))) return QString::fromLatin1(name);
    }
    return QApplication::font().family();
  }();
  return family;
}

/// Tables of digits need a font of one pitch.
QString FixedSubstitute() {
  const QString usual = QStringLiteral("DejaVu Sans Mono");
  return QFontDatabase::hasFamily(usual)
             ? usual
             : QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

QPalette LightPalette() {
  QPalette palette;
  palette.setColor(QPalette::Window, Page);
  palette.setColor(QPalette::WindowText, Ink);
  palette.setColor(QPalette::Base, Field);
  palette.setColor(QPalette::AlternateBase, Panel);
  palette.setColor(QPalette::Text, Ink);
  palette.setColor(QPalette::PlaceholderText, QuietText);
  palette.setColor(QPalette::Button, Panel);
  palette.setColor(QPalette::ButtonText, Ink);
  palette.setColor(QPalette::BrightText, Card);
  palette.setColor(QPalette::Light, Card);
  palette.setColor(QPalette::Midlight, Panel);
  palette.setColor(QPalette::Mid, Edge);
  palette.setColor(QPalette::Dark, StrongEdge);
  palette.setColor(QPalette::Shadow, StrongEdge);
  palette.setColor(QPalette::Highlight, Accent);
  palette.setColor(QPalette::HighlightedText, Card);
  palette.setColor(QPalette::Link, Accent);
  palette.setColor(QPalette::LinkVisited, Accent);
  palette.setColor(QPalette::ToolTipBase, Card);
  palette.setColor(QPalette::ToolTipText, Ink);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, DisabledText);
  }
  return palette;
}

void TakeColoursAndFont() {
  QApplication::setPalette(LightPalette());
  // Tips have a palette of their own, which a desktop may have made dark.
  QToolTip::setPalette(LightPalette());
  QApplication::setFont(TextFont(Scaled(TextSize)));
}

/// A desktop that changes its colours or fonts while the program runs gives those of menus, lists
/// and tips to the toolkit anew.
class DesktopWatch : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::ThemeChange && watched->isWindowType()) TakeColoursAndFont();
    return QObject::eventFilter(watched, event);
  }
};

}  // namespace

QColor ColourOf(const platform::Rgb& rgb) {
  return {rgb.Red, rgb.Green, rgb.Blue};
}

void PaintStrip(QPainter& painter, const QRect& area, const platform::TabStrip& strip) {
  QLinearGradient colours(area.topLeft(), area.topRight());
  colours.setColorAt(0, ColourOf(strip.ColorFrom));
  colours.setColorAt(1, ColourOf(strip.ColorTo));
  painter.fillRect(area, colours);
}

QFont TextFont(int pixels, const QString& family) {
  const bool present = !family.isEmpty() && QFontDatabase::hasFamily(family);
  QFont font(present                                ? family
             : family == QLatin1String(FixedFamily) ? FixedSubstitute()
                                                    : Family());
  font.setPixelSize(pixels);
  return font;
}

QFont BoldFont(int pixels) {
  QFont font = TextFont(pixels);
  font.setBold(true);
  return font;
}

void SetTextColour(QWidget& widget, const QColor& colour) {
  QPalette palette = widget.palette();
  palette.setColor(QPalette::WindowText, colour);
  widget.setPalette(palette);
}

void Apply(QApplication& application) {
  InitPictures();
  // The folder dialog, too, stands in the program's look and follows its window.
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  // All texts are English, and the places on the pages are counted from the left.
  QApplication::setLayoutDirection(Qt::LeftToRight);
  auto* style = new InstrumentStyle;
  style->setParent(&application);
  QApplication::setStyle(style);
  TakeColoursAndFont();
  static DesktopWatch watch;
  application.installEventFilter(&watch);
  application.setWindowIcon(ProgramIcon());
}

QIcon ProgramIcon() {
  QSvgRenderer drawing(QStringLiteral(":/vornik/icon.svg"));
  QIcon icon;
  for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace desktop::look
