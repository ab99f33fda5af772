#pragma once

#include <cstddef>

#include "config/settings.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"

namespace subroutines {

/// The two stations that a view offers.
class StationChoice {
 public:
  StationChoice(forms::SharedControls& shared, const forms::SetupControls& setup,
                const config::RunSettings& present)
      : shared_(shared), setup_(setup), present_(present) {}

  bool HasSecondStream() const {
    return !setup_.Text1[forms::setup_field::Content2].Text.Get().empty();
  }
  /// Shows the pair of a view, which `first` begins, with the station in use selected.
  void Show(std::size_t first) {
    shared_.Option3[first].Visible = true;
    shared_.Option3[present_.ActiveStream == 1 ? first : first + 1].Value = true;
    if (HasSecondStream()) shared_.Option3[first + 1].Visible = true;
  }
  void Hide(std::size_t first) {
    shared_.Option3[first].Visible = false;
    shared_.Option3[first + 1].Visible = false;
  }

 private:
  forms::SharedControls& shared_;
  const forms::SetupControls& setup_;
  const config::RunSettings& present_;
};

}  // namespace subroutines
