#pragma once

#include <array>
#include <optional>
#include <string>

#include "forms/setup_controls.h"
#include "forms/waveforms_controls.h"
#include "measure/view_context.h"

namespace subroutines {

/// What the scope's graph says at one sample: its number, its time, and the value of each shown
/// channel with its unit. The values are those of the curves as they stand on the graph, and they
/// can be read while the view is stopped.
class ScopeReading {
 public:
  /// `units` are the lists of units of the Setup view.
  ScopeReading(forms::WaveformsControls& scope, const forms::SetupControls& units,
               const ViewContext& context);

  /// A block stands on the graph: one of the running view, else one that was kept.
  void Plotted();

 private:
  /// The texts of the units of currents and voltages.
  using Units = std::array<std::string, forms::unit_list::Count>;

  Units Chosen() const;
  /// Gives the curves free for reading where they stand still.
  void Release();
  std::optional<platform::PointReading> At(double x) const;
  /// Where a sample is: its number and, where there is a frequency, its time.
  std::string PlaceOf(std::int32_t sample) const;

  forms::WaveformsControls& scope_;
  const forms::SetupControls& units_;
  ViewContext context_;
  /// The units of the curves; empty where nobody knows them.
  Units plotted_;
};

}  // namespace subroutines
