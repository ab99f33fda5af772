#pragma once

#include <cstdint>

#include "capture/view.h"
#include "config/setup_view.h"
#include "forms/shared_controls.h"

namespace formroutines {

/// The tab of the settings.
class SetupPage : public packetroutines::View {
 public:
  SetupPage(subroutines::SetupView& view, forms::SharedControls& shared)
      : view_(view), logo_(shared.Picture1[forms::logo::Setup]) {}

  std::int16_t Tab() const override { return forms::tab::Setup; }
  void Load() override { view_.LoadFields(); }
  void Show(const platform::Routine&) override { logo_.Visible = true; }
  void Hide() override { logo_.Visible = false; }

 private:
  subroutines::SetupView& view_;
  platform::PictureBox& logo_;
};

}  // namespace formroutines
