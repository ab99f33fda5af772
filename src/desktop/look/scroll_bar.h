#pragma once

#include <QPainter>
#include <QRect>
#include <QStyleOptionSlider>

namespace desktop::look {

// A scroll bar of the program: a rounded slider that stands out from the ground it runs on, and no
// buttons at its ends, which nobody presses and which would stay small in a large window.

/// Where the slider stands.
QRect SliderOf(const QStyleOptionSlider& bar);
/// Paints it over its ground.
void PaintScrollBar(QPainter& painter, const QStyleOptionSlider& bar);

}  // namespace desktop::look
