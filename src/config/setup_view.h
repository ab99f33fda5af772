#pragma once

#include <cstddef>
#include <string>

#include "base/number_text.h"
#include "base/plug.h"
#include "config/settings.h"
#include "config/stored_settings.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"
#include "forms/waveforms_controls.h"
#include "platform/services/file_system.h"
#include "platform/services/system_services.h"

namespace config {

/// What a change on the Setup view asks of those who gather blocks.
class BlockUser {
 public:
  virtual ~BlockUser() = default;
  /// Makes the block arrays anew, empty, with `baseSamples` rows.
  virtual void RebuildBlockArrays(std::int32_t baseSamples) = 0;
  /// The views show the other station from now on.
  virtual void StationChosen() = 0;
};

/// What it asks of those who show the channels.
class NameUser {
 public:
  virtual ~NameUser() = default;
  /// Writes the channel names to the captions.
  virtual void ShowChannelNames() = 0;
};

/// The filter that an empty content field stands for: a text that is in no frame.
inline constexpr const char* NoContent = "not yet determinated";

}  // namespace config

namespace subroutines {

/// True for an existing directory, with or without a separator at its end.
bool PathExists(const platform::FileSystem& files, const std::string& path);

/// What the Setup view edits: its own fields, the captions of the stations, and the legend of the
/// scope.
struct SetupParts {
  forms::SetupControls& Setup;
  forms::SharedControls& Shared;
  forms::WaveformsControls& Scope;
};

/// The Setup view: each change goes at once to its variable, to the store and to what is derived
/// from it. There is no apply button and no validation; a text that does not convert is a failure.
class SetupView {
 public:
  SetupView(const SetupParts& parts, config::Settings& settings, config::RunSettings& present,
            StoredSettings& stored, const platform::NumberText& numbers,
            platform::FolderDialog& folders);

  platform::Plug<config::BlockUser> Blocks;
  platform::Plug<config::NameUser> Names;

  /// Brings up the samplings, which are the same at every start, and with them the block arrays;
  /// then the stored filter condition and path.
  void LoadFields();
  /// Fills the unit lists and selects the stored units.
  void FillUnitLists();
  /// Brings up the stored frequency, interval and content filters, and with these the stations that
  /// can be chosen.
  void LoadStreams();
  /// Selects the first station on every view.
  void SelectFirstStation();

 private:
  void Text1_Change(std::size_t field);
  bool TakeField(std::size_t field, const std::string& text);
  void FilterRule(std::size_t index, std::size_t field);
  void Command3_Click();
  void Combo4_Click(std::size_t index);
  void Option3_Click(std::size_t index);

  SetupParts parts_;
  config::Settings& settings_;
  config::RunSettings& present_;
  StoredSettings& stored_;
  const platform::NumberText& numbers_;
  platform::FolderDialog& folders_;
};

}  // namespace subroutines
