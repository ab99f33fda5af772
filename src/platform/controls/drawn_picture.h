#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/controls/control.h"

namespace platform {

/// A point in the user coordinates of a picture.
struct Point {
  float X = 0;
  float Y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

/// The patterns of lines; one shows only at width 1.
namespace draw_style {
inline constexpr std::int16_t Solid = 0;
inline constexpr std::int16_t Dotted = 2;
inline constexpr std::int16_t DashDotDot = 4;
}  // namespace draw_style

/// The calls that a picture is drawn with.
namespace draw_call {
/// Gives the upper left and the lower right corner their coordinates.
struct Scale {
  Point TopLeft;
  Point BottomRight;
};
/// Colour of texts and of lines that name no colour.
struct ForeColor {
  Rgb Colour;
};
struct DrawStyle {
  std::int16_t Style;
};
/// In pixels.
struct DrawWidth {
  std::int16_t Width;
};
struct MoveTo {
  Point Position;
};
/// Leaves the position at its end.
struct Line {
  Point From;
  Point To;
  std::optional<Rgb> Colour;
};
/// A line from the position.
struct LineTo {
  Point To;
  Rgb Colour;
};
struct Circle {
  Point Centre;
  float Radius;
  Rgb Colour;
};
/// A text with its upper left corner at the position, which goes to the next line.
struct Print {
  std::string Text;
};
}  // namespace draw_call

/// A picture that is drawn call by call, in user coordinates, with a position and a foreground
/// colour. It keeps the calls, and whoever shows it paints them at the resolution of its own.
class DrawnPicture : public Control {
 public:
  using Call = std::variant<draw_call::Scale, draw_call::ForeColor, draw_call::DrawStyle,
                            draw_call::DrawWidth, draw_call::MoveTo, draw_call::Line,
                            draw_call::LineTo, draw_call::Circle, draw_call::Print>;
  /// What a call draws with, and what a clearing leaves as it is.
  struct Tools {
    draw_call::Scale Scale{{0, 0}, {1, 1}};
    Rgb ForeColor;
    std::int16_t Style = draw_style::Solid;
    std::int16_t Width = 1;

    /// Takes what a call says of them; a call that draws says nothing.
    void Take(const Call& call);
  };

  /// Takes all calls away, and the position back to the origin.
  void Clear();
  void Scale(Point topLeft, Point bottomRight) { Add(draw_call::Scale{topLeft, bottomRight}); }
  void ForeColor(Rgb colour) { Add(draw_call::ForeColor{colour}); }
  void DrawStyle(std::int16_t style) { Add(draw_call::DrawStyle{style}); }
  void DrawWidth(std::int16_t width) { Add(draw_call::DrawWidth{width}); }
  void MoveTo(Point position) { Add(draw_call::MoveTo{position}); }
  void Line(Point from, Point to, std::optional<Rgb> colour) {
    Add(draw_call::Line{from, to, colour});
  }
  void LineTo(Point to, Rgb colour) { Add(draw_call::LineTo{to, colour}); }
  void Circle(Point centre, float radius, Rgb colour) {
    Add(draw_call::Circle{centre, radius, colour});
  }
  void Print(const std::string& text) { Add(draw_call::Print{text}); }

  /// The calls since the last clearing, and what they begin with.
  const std::vector<Call>& Calls() const { return calls_; }
  const Tools& Before() const { return before_; }
  /// Raised by each call and each clearing. Whoever shows the picture sets it.
  Event<> Changed;

 private:
  void Add(Call call);

  Tools before_;
  std::vector<Call> calls_;
};

}  // namespace platform
