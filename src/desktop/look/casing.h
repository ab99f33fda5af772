#pragma once

#include <QColor>
#include <optional>

namespace desktop::look {

/// The least contrast of a curve or a marker with what it lies on.
inline constexpr double LeastContrast = 2.5;

/// The same of a text.
inline constexpr double ReadableContrast = 4.5;

/// The contrast of two colours as the Web Content Accessibility Guidelines reckon it, from 1 to 21.
double Contrast(const QColor& one, const QColor& other);

/// The colours of curves are given and some of them vanish on any ground that the others stand out
/// from. Such a colour is drawn on a thin edge, as maps draw a road: the edge stands out from the
/// ground, and the colour from its edge. Nothing where the colour needs none.
std::optional<QColor> CasingOf(const QColor& colour, const QColor& ground);

/// How wide the edge of a marker or a vector is at each side, in pixels of the smallest window.
inline constexpr double CasingWidth = 1.1;
/// What a curve with an edge keeps for its own colour of the width that all curves have.
inline constexpr double CorePart = 0.5;

}  // namespace desktop::look
