#include "config/adapter_choice.h"

#include <algorithm>
#include <vector>

#include "base/failure.h"
#include "base/number_text.h"
#include "base/raised.h"

namespace subroutines {

AdapterChoice::AdapterChoice(forms::SetupControls& setup, config::Settings& settings,
                             config::RunSettings& present, StoredSettings& stored)
    : setup_(setup), settings_(settings), present_(present), stored_(stored) {
  setup_.Combo1.Click = [this] { Combo1_Click(); };
}

void AdapterChoice::Restore(const std::function<void()>& fill) {
  const platform::Raised restoring(restoring_);
  fill();
  const auto place = PlaceOfName();
  if (place && *place != setup_.Combo1.ListIndex) setup_.Combo1.ListIndex = *place;
}

void AdapterChoice::ShowAdvice(const std::string& ofLayer) {
  adviceOfLayer_ = ofLayer;
  setup_.CaptureAdvice.Caption = MissingAdapter() + adviceOfLayer_;
}

void AdapterChoice::Combo1_Click() {
  const std::int32_t place = setup_.Combo1.ListIndex + 1;
  const bool forThisRun = present_.FirstFileOfRun > 0 && place >= present_.FirstFileOfRun;
  present_.FileOfRun = forThisRun ? place : 0;
  if (forThisRun) {
    stored_.ShowStatus();
  } else {
    Store(place);
  }
  if (!restoring_) ShowAdvice(adviceOfLayer_);
}

void AdapterChoice::Store(std::int32_t place) {
  settings_.AdapterIndex = platform::Narrow<std::int16_t>(place);
  // What the start selects is no choice of the user; only a store that knows no name takes one.
  if (!restoring_ || settings_.AdapterName.empty()) settings_.AdapterName = setup_.Combo1.Text();
  stored_.SaveSettings();
}

/// The place in the list that bears the stored name: the selected one, where several do.
std::optional<std::int32_t> AdapterChoice::PlaceOfName() const {
  if (setup_.Combo1.Text() == settings_.AdapterName) return setup_.Combo1.ListIndex;
  const std::vector<std::string>& names = setup_.Combo1.List;
  const auto found = std::find(names.begin(), names.end(), settings_.AdapterName);
  if (found == names.end()) return std::nullopt;
  return static_cast<std::int32_t>(found - names.begin());
}

std::string AdapterChoice::MissingAdapter() const {
  if (settings_.AdapterName.empty() || PlaceOfName()) return {};
  return "The chosen network adapter is missing or cannot capture: " + settings_.AdapterName +
         ". Until it is back at a start of the program, or another one is chosen, the adapter in "
         "use is: " +
         setup_.Combo1.Text() + ".\n";
}

}  // namespace subroutines
