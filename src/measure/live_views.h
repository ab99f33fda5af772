#pragma once

#include "capture/acquisition.h"
#include "config/configuration.h"
#include "forms/main_form.h"
#include "measure/phase_analysis.h"
#include "measure/phasor_diagram.h"
#include "measure/scope_view.h"
#include "measure/values_view.h"
#include "platform/services/event_queue.h"

namespace subroutines {

/// The views that show one block after the other.
class LiveViews : private packetroutines::BlockConsumers, private config::NameUser {
 public:
  LiveViews(forms::Main& main, config::Configuration& config,
            packetroutines::Acquisition& acquisition, platform::EventQueue& events,
            const platform::NumberText& numbers)
      : context_{config.Settings,
                 config.Present,
                 config.Stored,
                 config.Stations,
                 acquisition.State,
                 acquisition.State,
                 acquisition.Block,
                 acquisition.Capture,
                 acquisition.Run,
                 events,
                 numbers},
        Values(main, main, main, main, context_),
        Scope(main, main, main, main, context_),
        Diagram(main, acquisition.State, config.Present, numbers),
        Phases(main, main, Diagram, acquisition.State, context_) {
    acquisition.Upper.Views = *this;
    config.View.Names = *this;
  }

 private:
  ViewContext context_;

 public:
  ValuesView Values;
  ScopeView Scope;
  PhasorDiagram Diagram;
  PhaseAnalysis Phases;

 private:
  void PlotBlock(const char* mode) override { Scope.PlotBlock(mode); }
  void CalculateValues() override { Values.CalculateValues(); }
  void ClearValues() override { Values.ClearValues(); }
  void UpdatePhases() override { Phases.UpdatePhases(); }
  void ShowChannelNames() override { Values.ShowChannelNames(); }
};

}  // namespace subroutines
