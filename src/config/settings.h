#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "config/stream_texts.h"
#include "platform/stream_format.h"

namespace config {

/// The stored settings, in the order of the store. This is the working copy: nothing reads the
/// store behind its back.
struct Settings {
  std::string StoragePath;
  /// 1-based position of the chosen network adapter.
  std::int16_t AdapterIndex = 1;
  /// The name of the adapter that the user chose; it finds it again where the list has changed.
  std::string AdapterName;
  /// Index into the list of number formats.
  std::int16_t UnitResolution = 0;
  /// 0 is "A", 1 is "mA".
  std::int16_t UnitCurrent = 0;
  /// 0 is "kV", 1 is "V", 2 is "mV".
  std::int16_t UnitVoltage = 0;
  /// Additional wait between two blocks of a live view, in ms.
  std::int16_t InternalDelay = 500;
  std::array<std::string, platform::channels::Count> ChannelName;
  std::int16_t PrinterChoice = 0;
  /// The user's part of the capture filter.
  std::string FilterString;
  StreamTexts FilterContent;
  /// Which channels the scope draws.
  std::array<std::int16_t, platform::channels::Count> SensorEnabled{};
  /// Hz.
  float BaseFrequency = 50;
  /// The DC numbers are shown.
  bool ACDC = false;
  bool SetupDone = false;
  float CurrentTriggerWave = 20;
  float VoltageTriggerWave = 15;
  /// Seconds.
  float BeforeTriggerWaveTime = 2;
  /// Seconds.
  float AfterTriggerWaveTime = 5;
  std::int16_t SingleTrigger = 1;
  /// Seconds.
  std::int16_t TriggerPause = 10;
  /// The number of a tab.
  std::int16_t MainActiveTab = 1;
  /// The name of a format of recordings.
  std::string FileFormat;
};

/// What the settings and the Setup view mean for the present run alone.
struct RunSettings {
  /// Frames in a block.
  std::int32_t BaseSamples = 400;
  /// The number pattern of all measured values: the text of the chosen format.
  std::string UnitFormat;
  float CurrentUnitFactor = 1;
  float VoltageUnitFactor = 1;
  /// 1 or 2: the content filter last given a real value.
  std::int16_t StreamCount = 1;
  /// 1 or 2: the stream chosen for the views.
  std::int16_t ActiveStream = 1;
  /// 1-based position of a capture file that is chosen for this run of the program alone; 0 where
  /// the stored adapter is in use.
  std::int32_t FileOfRun = 0;
  /// 1-based position of the first of those files in the list of adapters; 0 where there is none.
  std::int32_t FirstFileOfRun = 0;
};

}  // namespace config
