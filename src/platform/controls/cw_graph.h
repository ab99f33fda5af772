#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/control.h"
#include "platform/picture.h"
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
  /// 0 is no marker, `CWGraph::SampleMarker` one at every point.
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
  /// The ends of the part that shows, as the program or whoever shows the graph sets them.
  Property<double> Minimum;
  Property<double> Maximum;
  /// Scales the axis once to the data now shown.
  Event<> ScaleNow;
};

/// What the visible curves of a graph say at one of their points.
struct PointReading {
  struct Value {
    std::size_t Plot = 0;
    std::string Name;
    std::string Text;
  };
  std::int32_t Point = 0;
  /// Where the point is, in words.
  std::string Place;
  std::vector<Value> Values;
};

/// A graph of eight curves that the user pans, zooms and scales with the mouse.
class CWGraph : public Control {
 public:
  static constexpr std::int16_t PanMode = 3;
  static constexpr std::int16_t ZoomMode = 6;
  /// The point style of a marker at every point; 0 is none.
  static constexpr std::int16_t SampleMarker = 15;

  std::array<Plot, channels::Count> Plots;
  Axis XAxis;
  Axis YAxis;
  /// From one point to the next. Where it is above 0, a second scale tells the time of the points.
  Property<double> SecondsPerPoint;
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
  /// The curves stand still, so that their points can be read.
  Property<bool> Readable;
  /// What the point nearest to a place of the x axis says; nothing where nothing can be read.
  /// Whoever fills the graph sets it; a graph without it is none to be read.
  std::function<std::optional<PointReading>(double x)> ReadPoint;
  /// Draws the graph as it looks now. Whoever shows the graph sets it.
  std::function<Picture()> Draw;

  /// The image of the graph; empty where nothing shows it.
  Picture Image() const { return Draw ? Draw() : Picture(); }
};

}  // namespace platform
