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
using platform::Canvas;
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

PhasorDiagram::PhasorDiagram(forms::PhasorControls& phasor, Canvas& canvas,
                             const packetroutines::ReadingFields& readings,
                             const config::RunSettings& present,
                             const platform::NumberText& numbers)
    : phasor_(phasor), canvas_(canvas), readings_(readings), present_(present), numbers_(numbers) {}

void PhasorDiagram::HeadTable() {
  phasor_.Grid1.Cell[0][1] = "absolute";
  phasor_.Grid1.Cell[0][2] = "phase";
  phasor_.Grid1.ColumnWidth[0] = 2950;
  phasor_.Grid1.ColumnWidth[1] = 1300;
  phasor_.Grid1.ColumnWidth[2] = 1300;
}

void PhasorDiagram::DrawPhasorGrid() {
  canvas_.Clear();
  canvas_.Scale({-Edge, -Edge}, {Edge, Edge});
  canvas_.DrawStyle(Canvas::DashDotDot);
  canvas_.Line({-FullLength, 0}, {FullLength, 0}, std::nullopt);
  canvas_.Line({0, -FullLength}, {0, FullLength}, std::nullopt);
  const auto d = static_cast<float>(FullLength / std::sqrt(2.0));
  canvas_.Line({-d, -d}, {d, d}, LightCyan);
  canvas_.Line({-d, d}, {d, -d}, LightCyan);
  DrawSpokes();
  DrawCircles();
  DrawAngleLabels();
  canvas_.ForeColor(Black);
}

void PhasorDiagram::DrawSpokes() {
  for (int k = 0; k < 12; ++k) {
    canvas_.DrawStyle(Canvas::Dotted);
    // The axes stand already.
    if (k % 3 != 0) canvas_.Line({0, 0}, Polar(30.0 * k, FullLength), Black);
  }
}

void PhasorDiagram::DrawCircles() {
  for (int k = 0; k < Rings; ++k) {
    canvas_.DrawStyle(k == 0 ? Canvas::Solid : Canvas::DashDotDot);
    canvas_.Circle({0, 0}, static_cast<float>(FullLength - k * 1.25 * 100), Black);
  }
}

void PhasorDiagram::DrawAngleLabels() {
  canvas_.ForeColor(Blue);
  canvas_.MoveTo({0, -1000});
  canvas_.Print("90°");
  canvas_.MoveTo({-1000, 0});
  canvas_.Print("180°");
  canvas_.MoveTo({0, 950});
  canvas_.Print("270°");
  canvas_.MoveTo({950, 0});
  canvas_.Print("0°");
}

void PhasorDiagram::DrawPhasors(float peakCurrent, float peakVoltage, const PhaseShifts& s) {
  ChooseFullScales(peakCurrent, peakVoltage);
  canvas_.ForeColor(Black);
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
  canvas_.DrawWidth(1);
  canvas_.ForeColor(Black);
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
  canvas_.MoveTo({-950, 950});
  canvas_.Print(scale("FS current=", fullScaleCurrent_, "A"));
  canvas_.MoveTo({380, 950});
  canvas_.Print(scale("FS voltage=", fullScaleVoltage_, "kV"));
}

void PhasorDiagram::DrawPhasor(std::int16_t fullScale, double angle1, std::size_t channel,
                               double angle2) {
  if (fullScale == 0) throw platform::Failure(platform::failure::DivisionByZero);
  const double a = angle1 + angle2;
  const bool current = channels::IsCurrent(channel);
  const Rgb colour = current ? LightRed : LightGreen;
  canvas_.DrawWidth(current ? 5 : 3);
  canvas_.Line({0, 0}, Polar(a, readings_.RmsValues[channel] / fullScale * FullLength), colour);
  if (!channels::IsNeutral(channel)) {
    canvas_.DrawWidth(3);
    DrawHead(a, colour);
    canvas_.ForeColor(Black);
    canvas_.Print((current ? "I" : "U") + std::to_string(channel % channels::OfAKind + 1));
  }
  auto& row = phasor_.Grid1.Cell[channel + 1];
  row[1] = numbers_.Format(readings_.RmsValues[channel], present_.UnitFormat);
  row[2] = numbers_.Format(-a, "0.000");
}

void PhasorDiagram::DrawHead(double angle, Rgb colour) {
  const Point tip = canvas_.Position();
  for (const double side : {-BarbAngle, BarbAngle}) {
    const double direction = (angle + side) / 180 * Pi;
    canvas_.LineTo({static_cast<float>(tip.X - std::cos(direction) * BarbLength),
                    static_cast<float>(tip.Y - std::sin(direction) * BarbLength)},
                   colour);
    canvas_.MoveTo(tip);
  }
}

}  // namespace subroutines
