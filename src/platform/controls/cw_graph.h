#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/controls/control.h"
#include "platform/stream_format.h"

namespace platform {

/// One curve of a graph: the values `Y` stand at x = 0, 1, 2, ...
class Plot {
 public:
  Property<bool> Visible{true};
  Property<Rgb> LineColor;
  Property<Rgb> PointColor;
  /// 0 is no line, 1 a solid line.
  Property<std::int16_t> LineStyle{1};
  /// 0 is no marker, 15 a marker at every point.
  Property<std::int16_t> PointStyle;
  /// In pixels.
  Property<std::int16_t> LineWidth{2};
  Property<std::vector<double>> Y;
};

/// One axis of a graph.
class Axis {
 public:
  /// The axis follows the data whenever curves are drawn.
  Property<bool> AutoScale;
  /// The words along the axis.
  Property<std::string> Caption;
  /// The ends of the axis, where the program sets them; they do not follow the user's hand.
  Property<double> Minimum;
  Property<double> Maximum;
  /// Scales the axis once to the data now shown.
  Event<> ScaleNow;
};

/// A graph of eight curves that the user pans, zooms and scales with the mouse.
class CWGraph : public Control {
 public:
  static constexpr std::int16_t PanMode = 3;
  static constexpr std::int16_t ZoomMode = 6;
  static constexpr std::int16_t LeftButton = 1;
  static constexpr std::int16_t RightButton = 2;
  static constexpr std::int16_t MiddleButton = 4;

  std::array<Plot, channels::Count> Plots;
  Axis XAxis;
  Axis YAxis;
  /// What a drag does: `PanMode` or `ZoomMode`.
  Property<std::int16_t> TrackMode{PanMode};
  /// The graph shows its background picture; without it, it stands on plain white.
  Property<bool> ScreenLook;
  Event<> DblClick;
  /// The number of the mouse button.
  Event<std::int16_t> MouseDown;
  Event<> ZoomFinished;
  /// Redraws at once.
  Event<> Refresh;
};

}  // namespace platform
