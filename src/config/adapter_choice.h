#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "config/settings.h"
#include "config/stored_settings.h"
#include "forms/setup_controls.h"

namespace subroutines {

/// The choice of the network adapter on the Setup view. A capture uses its number; beside it the
/// store keeps its name, since a number means another adapter as soon as the list has changed. An
/// adapter that is missing at the start keeps its name until the user makes another choice. What
/// the list gets behind its start is there for this run of the program, and never stored.
class AdapterChoice {
 public:
  AdapterChoice(forms::SetupControls& setup, config::Settings& settings,
                config::RunSettings& present, StoredSettings& stored);

  /// Runs `fill`, which fills the list and selects by the number, and then goes by the name.
  void Restore(const std::function<void()>& fill);
  /// Shows what the capture layer advises, and before it which adapter is missing.
  void ShowAdvice(const std::string& ofLayer);

 private:
  void Combo1_Click();
  void Store(std::int32_t place);
  std::optional<std::int32_t> PlaceOfName() const;
  std::string MissingAdapter() const;

  forms::SetupControls& setup_;
  config::Settings& settings_;
  config::RunSettings& present_;
  StoredSettings& stored_;
  std::string adviceOfLayer_;
  bool restoring_ = false;
};

}  // namespace subroutines
