#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/controls/control.h"

namespace platform {

/// A point in the user coordinates of a picture.
struct Point {
  float X = 0;
  float Y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

/// A drawing surface with user coordinates, a current position and a foreground colour.
class Canvas {
 public:
  static constexpr std::int16_t Solid = 0;
  static constexpr std::int16_t Dotted = 2;
  static constexpr std::int16_t DashDotDot = 4;

  virtual ~Canvas() = default;
  virtual void Clear() = 0;
  /// Gives the upper left and the lower right corner their coordinates.
  virtual void Scale(Point topLeft, Point bottomRight) = 0;
  /// Colour of texts and of lines that name no colour.
  virtual void ForeColor(Rgb colour) = 0;
  /// `Solid`, `Dotted` or `DashDotDot`; a pattern shows only at width 1.
  virtual void DrawStyle(std::int16_t style) = 0;
  /// In pixels.
  virtual void DrawWidth(std::int16_t width) = 0;
  virtual Point Position() const = 0;
  virtual void MoveTo(Point position) = 0;
  /// Leaves the current position at the end of the line.
  virtual void Line(Point from, Point to, std::optional<Rgb> colour) = 0;
  virtual void LineTo(Point to, Rgb colour) = 0;
  virtual void Circle(Point centre, float radius, Rgb colour) = 0;
  /// Prints at the current position, the upper left corner of the text, and advances it.
  virtual void Print(const std::string& text) = 0;
};

}  // namespace platform
