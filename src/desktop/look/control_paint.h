#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>
#include <QStyleOption>

#include "desktop/look/look.h"

namespace desktop::look {

// How the standard controls are painted, in the present factor; the style says where.

/// The side of the box of a check box and of the circle of a choice, in pixels of the smallest
/// window.
inline constexpr int IndicatorSize = 17;

/// A rounded box whose edge tells whether it has the focus; `edge` is the one that it has at rest.
void DrawBox(QPainter& painter, const QRect& area, const QColor& ground, const QStyle::State& state,
             const QColor& edge = StrongEdge);
/// What opens a list.
void DrawChevron(QPainter& painter, const QRect& area, const QColor& colour);
void DrawCheck(QPainter& painter, const QStyleOption& option);
void DrawRadio(QPainter& painter, const QStyleOption& option);
void DrawButton(QPainter& painter, const QStyleOption& option);
void DrawFocus(QPainter& painter, const QStyleOption& option);
void DrawGroup(QPainter& painter, const QStyleOption& option);
/// What is done of a bar, within its edge.
void DrawProgress(QPainter& painter, const QStyleOptionProgressBar& bar);
void DrawTip(QPainter& painter, const QStyleOption& option);

}  // namespace desktop::look
