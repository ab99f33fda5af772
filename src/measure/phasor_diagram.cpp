#include "measure/phasor_diagram.h"

#include <cmath>
#include <span>
#include <string>

#include "base/failure.h"
#include "measure/angles.h"
#include "measure/full_scales.h"
#include "platform/stream_format.h"

namespace subroutines {

namespace channels = platform::channels;
namespace draw_style = platform::draw_style;
using platform::Point;
using platform::Rgb;

namespace {

/// Length of a full-scale value in user coordinates; the picture is a little larger.
constexpr float FullLength = 1000;
constexpr float Edge = 1005;
constexpr int Rings = 8;
constexpr double BarbLength = 50;
constexpr double BarbAngle = 20;

constexpr Rgb Black{0, 0, 0};
constexpr Rgb LightGreen{0, 255, 0};
constexpr Rgb LightCyan{0, 255, 255};
constexpr Rgb LightRed{255, 0, 0};
constexpr Rgb Blue{0, 0, 255};

/// What a value above the ladder gets; for a current there is no scale at all.
constexpr std::int16_t CurrentAbove = 0;
constexpr std::int16_t VoltageAbove = 10000;

/// The smallest full scale that `peak` fits into.
std::int16_t FullScaleOf(std::span<const std::int16_t> ladder, float peak, std::int16_t above) {
  for (const std::int16_t scale : ladder) {
    if (peak <= static_cast<float>(scale)) return scale;
  }
  return above;
}

Point Polar(double degrees, double radius) {
  return {static_cast<float>(std::cos(degrees / 180 * Pi) * radius),
          static_cast<float>(std::sin(degrees / 180 * Pi) * radius)};
}

}  // namespace

PhasorDiagram::PhasorDiagram(forms::PhasorControls& phasor,
                             const packetroutines::ReadingFields& readings,
                             const config::RunSettings& present,
                             const platform::NumberText& numbers)
    : phasor_(phasor),
      picture_(phasor.phasordiagram),
      readings_(readings),
      present_(present),
      numbers_(numbers) {}

void PhasorDiagram::HeadTable() {
  phasor_.Grid1.Cell[0][1] = "absolute";
  phasor_.Grid1.Cell[0][2] = "phase";
  phasor_.Grid1.ColumnWidth[0] = 2950;
  phasor_.Grid1.ColumnWidth[1] = 1300;
  phasor_.Grid1.ColumnWidth[2] = 1300;
}

void PhasorDiagram::DrawPhasorGrid() {
  picture_.Clear();
  picture_.Scale({-Edge, -Edge}, {Edge, Edge});
  picture_.DrawStyle(draw_style::DashDotDot);
  picture_.Line({-FullLength, 0}, {FullLength, 0}, std::nullopt);
  picture_.Line({0, -FullLength}, {0, FullLength}, std::nullopt);
  const auto d = static_cast<float>(FullLength / std::sqrt(2.0));
  picture_.Line({-d, -d}, {d, d}, LightCyan);
  picture_.Line({-d, d}, {d, -d}, LightCyan);
  DrawSpokes();
  DrawCircles();
  DrawAngleLabels();
  picture_.ForeColor(Black);
}

void PhasorDiagram::DrawSpokes() {
  for (int k = 0; k < 12; ++k) {
    picture_.DrawStyle(draw_style::Dotted);
    // The axes stand already.
    if (k % 3 != 0) picture_.Line({0, 0}, Polar(30.0 * k, FullLength), Black);
  }
}

void PhasorDiagram::DrawCircles() {
  for (int k = 0; k < Rings; ++k) {
    picture_.DrawStyle(k == 0 ? draw_style::Solid : draw_style::DashDotDot);
    picture_.Circle({0, 0}, static_cast<float>(FullLength - k * 1.25 * 100), Black);
  }
}

void PhasorDiagram::DrawAngleLabels() {
  picture_.ForeColor(Blue);
  picture_.MoveTo({0, -1000});
  picture_.Print("90°");
  picture_.MoveTo({-1000, 0});
  picture_.Print("180°");
  picture_.MoveTo({0, 950});
  picture_.Print("270°");
  picture_.MoveTo({950, 0});
  picture_.Print("0°");
}

void PhasorDiagram::DrawPhasors(float peakCurrent, float peakVoltage, const PhaseShifts& s) {
  ChooseFullScales(peakCurrent, peakVoltage);
  picture_.ForeColor(Black);
  PrintFullScales();
  DrawPhasor(fullScaleCurrent_, s.ShiftIA, channels::CurrentA, s.ShiftUA);
  DrawPhasor(fullScaleCurrent_, s.ShiftIB, channels::CurrentB, s.ShiftUB);
  DrawPhasor(fullScaleCurrent_, s.ShiftIC, channels::CurrentC, s.ShiftUC);
  DrawPhasor(fullScaleCurrent_, s.ShiftIN, channels::CurrentN, s.ShiftUN);
  // Voltages come last, so that they lie on top.
  DrawPhasor(fullScaleVoltage_, s.ShiftUA, channels::VoltageA, 0);
  DrawPhasor(fullScaleVoltage_, s.ShiftUB, channels::VoltageB, 0);
  DrawPhasor(fullScaleVoltage_, s.ShiftUC, channels::VoltageC, 0);
  DrawPhasor(fullScaleVoltage_, s.ShiftUN, channels::VoltageN, 0);
  picture_.DrawWidth(1);
  picture_.ForeColor(Black);
}

void PhasorDiagram::ChooseFullScales(float peakCurrent, float peakVoltage) {
  fullScaleCurrent_ = FullScaleOf(CurrentScales, peakCurrent, CurrentAbove);
  fullScaleVoltage_ = FullScaleOf(VoltageScales, peakVoltage, VoltageAbove);
}

void PhasorDiagram::PrintFullScales() {
  const auto scale = [this](const char* name, std::int16_t fullScale, const char* unit) {
    const double ring = static_cast<double>(fullScale) / Rings;
    return name + platform::NumberText::General(fullScale) + " (" + numbers_.General(ring) + ")" +
           unit;
  };
  picture_.MoveTo({-950, 950});
  picture_.Print(scale("FS current=", fullScaleCurrent_, "A"));
  picture_.MoveTo({380, 950});
  picture_.Print(scale("FS voltage=", fullScaleVoltage_, "kV"));
}

void PhasorDiagram::DrawPhasor(std::int16_t fullScale, double angle1, std::size_t channel,
                               double angle2) {
  if (fullScale == 0) throw platform::Failure(platform::failure::DivisionByZero);
  const double a = angle1 + angle2;
  const bool current = channels::IsCurrent(channel);
  const Rgb colour = current ? LightRed : LightGreen;
  picture_.DrawWidth(current ? 5 : 3);
  const Point tip = Polar(a, readings_.RmsValues[channel] / fullScale * FullLength);
  picture_.Line({0, 0}, tip, colour);
  if (!channels::IsNeutral(channel)) {
    picture_.DrawWidth(3);
    DrawHead(tip, a, colour);
    picture_.ForeColor(Black);
    picture_.Print((current ? "I" : "U") + std::to_string(channel % channels::OfAKind + 1));
  }
  auto& row = phasor_.Grid1.Cell[channel + 1];
  row[1] = numbers_.Format(readings_.RmsValues[channel], present_.UnitFormat);
  row[2] = numbers_.Format(-a, "0.000");
}

void PhasorDiagram::DrawHead(Point tip, double angle, Rgb colour) {
  for (const double side : {-BarbAngle, BarbAngle}) {
    const double direction = (angle + side) / 180 * Pi;
    picture_.LineTo({static_cast<float>(tip.X - std::cos(direction) * BarbLength),
                     static_cast<float>(tip.Y - std::sin(direction) * BarbLength)},
                    colour);
    picture_.MoveTo(tip);
  }
}

}  // namespace subroutines
