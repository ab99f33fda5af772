#pragma once

#include <functional>

#include "base/program.h"
#include "capture/acquisition_state.h"
#include "forms/main_form.h"

namespace formroutines {

/// The layout rules: the views follow the size of the window by its ratios to the smallest size.
/// Places are in twips from the upper left corner of the tab strip.
class FormLayout {
 public:
  FormLayout(forms::Main& main, const packetroutines::AcquisitionState& state,
             platform::Program& program);

  void FormResize();

  /// Selects the first tab for the time of the layout, and then the one before again.
  std::function<void()> PassFirstTab;
  std::function<void(std::int16_t)> ReturnToTab;
  /// A recording is being started or finished.
  std::function<bool()> RecordingInHand;
  /// Draws the background of the phasor diagram anew.
  std::function<void()> DrawPhasorGrid;

 private:
  void KeepMinimumWidth();
  void KeepMinimumHeight();
  void PlaceValues();
  void PlaceScope();
  void PlaceLogos();
  void PlacePhasor();
  void PlaceInfo();
  bool RunActive() const;

  forms::Main& main_;
  const packetroutines::AcquisitionState& state_;
  platform::Program& program_;
  double ratioX_ = 1;
  double ratioY_ = 1;
};

}  // namespace formroutines
