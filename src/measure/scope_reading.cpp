#include "measure/scope_reading.h"

#include <algorithm>
#include <cmath>

#include "platform/stream_format.h"

namespace subroutines {

namespace {

constexpr const char* MillisecondFormat = "0.00";

}  // namespace

ScopeReading::ScopeReading(forms::WaveformsControls& scope, const forms::SetupControls& units,
                           const ViewContext& context)
    : scope_(scope), units_(units), context_(context) {
  scope_.CWGraph1.ReadPoint = [this](double x) { return At(x); };
  scope_.CWButton1.Value.Observe([this] { Release(); });
}

void ScopeReading::Release() {
  scope_.CWGraph1.Readable = !scope_.CWButton1.Value && !scope_.CWGraph1.Plots[0].Y.Get().empty();
}

ScopeReading::Units ScopeReading::Chosen() const {
  return {units_.Combo4[forms::unit_list::Current].Text(),
          units_.Combo4[forms::unit_list::Voltage].Text()};
}

void ScopeReading::Plotted() {
  const Units chosen = Chosen();
  if (context_.State.LookingForScope) {
    plotted_ = chosen;
  } else if (plotted_ != chosen) {
    // A block that was kept may be of another view, before or behind the change of the unit.
    plotted_ = Units();
  }
  Release();
}

std::optional<platform::PointReading> ScopeReading::At(double x) const {
  const platform::CWGraph& graph = scope_.CWGraph1;
  if (!graph.Readable) return std::nullopt;
  const auto last = static_cast<double>(graph.Plots[0].Y.Get().size()) - 1;
  platform::PointReading reading;
  reading.Point = static_cast<std::int32_t>(std::lround(std::clamp(x, 0.0, last)));
  reading.Place = PlaceOf(reading.Point);
  for (std::size_t i = 0; i < graph.Plots.size(); ++i) {
    if (!graph.Plots[i].Visible) continue;
    const double value = graph.Plots[i].Y.Get()[static_cast<std::size_t>(reading.Point)];
    std::string text = context_.Numbers.Format(value, context_.Present.UnitFormat);
    const std::string& unit =
        plotted_[platform::channels::IsCurrent(i) ? forms::unit_list::Current
                                                  : forms::unit_list::Voltage];
    if (!unit.empty()) text += " " + unit;
    reading.Values.push_back({i, scope_.Check2[i].Caption, std::move(text)});
  }
  return reading;
}

std::string ScopeReading::PlaceOf(std::int32_t sample) const {
  std::string place = "sample " + std::to_string(sample);
  const double seconds = scope_.CWGraph1.SecondsPerPoint;
  if (seconds <= 0) return place;
  return place + ", " + context_.Numbers.Format(sample * seconds * 1000, MillisecondFormat) + " ms";
}

}  // namespace subroutines
