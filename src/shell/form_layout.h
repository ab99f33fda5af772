#pragma once

#include "base/program.h"
#include "capture/acquisition_state.h"
#include "forms/main_form.h"
#include "shell/tab_controller.h"

namespace formroutines {

/// The layout rules: the views follow the size of the window by its ratios to the smallest size.
/// Places are in twips from the upper left corner of the tab strip.
class FormLayout {
 public:
  FormLayout(forms::Main& main, const packetroutines::RunFields& state, TabController& tabs,
             const Views& views, platform::Program& program);

  void FormResize();

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
  const packetroutines::RunFields& state_;
  TabController& tabs_;
  const Views& views_;
  platform::Program& program_;
  double ratioX_ = 1;
  double ratioY_ = 1;
};

}  // namespace formroutines
