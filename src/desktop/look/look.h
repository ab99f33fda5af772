#pragma once

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QString>

#include "desktop/look/twips.h"
#include "platform/controls/tab_strip.h"
#include "platform/controls/window.h"

namespace desktop::look {

// One light, calm set of colours. Every text colour has a contrast of at least 4.5 : 1 on every
// ground that it is used on.
inline constexpr QColor Ink{16, 37, 61};
inline constexpr QColor QuietText{70, 92, 116};
inline constexpr QColor DisabledText{96, 112, 130};
inline constexpr QColor Page{243, 247, 251};
inline constexpr QColor Card{255, 255, 255};
inline constexpr QColor Panel{248, 251, 254};
inline constexpr QColor Field{240, 246, 253};
inline constexpr QColor Edge{201, 215, 230};
inline constexpr QColor StrongEdge{120, 146, 176};
inline constexpr QColor Accent{10, 95, 190};
inline constexpr QColor Pressed{204, 229, 254};
inline constexpr QColor RunGreen{15, 122, 66};
inline constexpr QColor StopRed{184, 30, 38};
inline constexpr QColor Digits{8, 44, 92};
/// Under digits whose given colour does not stand out from a card.
inline constexpr QColor Plate{12, 18, 28};
inline constexpr QColor CurrentMark{10, 95, 190};
inline constexpr QColor VoltageMark{168, 88, 0};
inline constexpr QColor AdviceGround{255, 247, 222};
inline constexpr QColor AdviceEdge{222, 178, 66};
inline constexpr QColor AdviceText{92, 62, 0};

// Pixels of 1/96 inch.
inline constexpr int SmallSize = 11;
inline constexpr int TextSize = 13;
inline constexpr int HeadingSize = 14;
inline constexpr int Corner = 5;
/// The height of fields, lists and buttons, so that they stand in one row, and the way from a
/// field's edge to its text.
inline constexpr int FieldHeight = 30;
inline constexpr int FieldPadding = 7;

// The smallest window, in pixels; pages are designed in its size.
inline constexpr double DesignWidth = 1.0 * platform::MinimumWidth / twips::PerPixel;
inline constexpr double DesignHeight = 1.0 * platform::MinimumHeight / twips::PerPixel;
/// What a page leaves free at its sides and above.
inline constexpr int PageMargin = 16;

/// The colour of a control on the screen.
QColor ColourOf(const platform::Rgb& rgb);
/// Paints the row of a strip's tabs, which runs from its first colour to its second.
void PaintStrip(QPainter& painter, const QRect& area, const platform::TabStrip& strip);

/// A font of the program; `family` is used where it is present, else a font of its kind.
QFont TextFont(int pixels, const QString& family = QString());
/// The same in bold, for headings.
QFont BoldFont(int pixels);
void SetTextColour(QWidget& widget, const QColor& colour);

/// Gives the whole program its style, palette, font and direction, whatever desktop it runs on.
void Apply(QApplication& application);

QIcon ProgramIcon();

}  // namespace desktop::look
