#include "config/stored_settings.h"

#include <string>

#include "platform/services/dialogs.h"

namespace subroutines {

namespace {

constexpr const char* ChannelLetters = "ABCDEFGH";

/// Every stored setting with its default, in the order of the store. The last key is written as a
/// constant and never read: an old value must not resize the block arrays.
template <typename Visitor>
void VisitSettings(config::Settings& s, Visitor&& visit) {
  visit("Path of stored data", s.StoragePath, config::DefaultStoragePath);
  visit("Used Networkadapter", s.AdapterIndex, "1");
  visit("Name of used Networkadapter", s.AdapterName, "");
  visit("Unit Resolution", s.UnitResolution, "0");
  visit("UnitCurrent", s.UnitCurrent, "0");
  visit("UnitVoltage", s.UnitVoltage, "0");
  visit("Internal Delay", s.InternalDelay, "500");
  constexpr const char* Names[] = {"Current Sensor A", "Current Sensor B", "Current Sensor C",
                                   "Current Sensor N", "Voltage Sensor A", "Voltage Sensor B",
                                   "Voltage Sensor C", "Voltage Sensor N"};
  for (std::size_t i = 0; i < s.ChannelName.size(); ++i) {
    visit(std::string("DataName ") + ChannelLetters[i], s.ChannelName[i], Names[i]);
  }
  visit("Printerchoice", s.PrinterChoice, "0");
  visit("Filterstring", s.FilterString, "");
  visit("FilterContentString", s.FilterContent[0], "");
  visit("FilterContentString2", s.FilterContent[1], "");
  for (std::size_t i = 0; i < s.SensorEnabled.size(); ++i) {
    visit(std::string("Sensor ") + ChannelLetters[i] + " enabled", s.SensorEnabled[i], "1");
  }
  visit("Frequency", s.BaseFrequency, "50");
  visit("ACDC", s.ACDC, "False");
  visit("SetupDone", s.SetupDone, "False");
  visit("CurrentTriggerWave", s.CurrentTriggerWave, "20");
  visit("VoltageTriggerWave", s.VoltageTriggerWave, "15");
  visit("BeforeTriggerWaveTime", s.BeforeTriggerWaveTime, "2");
  visit("AfterTriggerWaveTime", s.AfterTriggerWaveTime, "5");
  visit("SingleTrigger", s.SingleTrigger, "1");
  visit("TriggerPause", s.TriggerPause, "10");
  visit(config::ActiveTabKey, s.MainActiveTab, "1");
  visit("FileFormat", s.FileFormat, "TXT");
}

void Convert(const platform::NumberText&, const std::string& text, std::string& variable) {
  variable = text;
}
void Convert(const platform::NumberText& numbers, const std::string& text, std::int16_t& variable) {
  variable = numbers.ToInt16(text);
}
void Convert(const platform::NumberText& numbers, const std::string& text, float& variable) {
  variable = numbers.ToSingle(text);
}
void Convert(const platform::NumberText& numbers, const std::string& text, bool& variable) {
  variable = numbers.ToBoolean(text);
}

std::string ToText(const platform::NumberText&, const std::string& value) {
  return value;
}
template <typename T>
std::string ToText(const platform::NumberText& numbers, const T& value) {
  return numbers.General(value);
}

}  // namespace

StoredSettings::StoredSettings(platform::SettingsStore& store, const platform::NumberText& numbers,
                               config::Settings& settings)
    : store_(store), numbers_(numbers), settings_(settings) {}

void StoredSettings::LoadSettings() {
  VisitSettings(settings_, [&](const std::string& key, auto& variable, const char* fallback) {
    const std::string text = store_.Get(config::Application, config::Section, key, fallback);
    try {
      Convert(numbers_, text, variable);
    } catch (const platform::Failure& failure) {
      throw WithWayOut(failure, "The stored setting '" + key + "' is '" + text + "'.");
    }
  });
}

platform::Failure StoredSettings::WithWayOut(const platform::Failure& failure,
                                             const std::string& cause) const {
  using platform::Crlf;
  return {failure.Number(), failure.Text() + Crlf + Crlf + cause + Crlf + "Settings file: " +
                                store_.Place(config::Application) + Crlf + Crlf +
                                "Please correct the setting there, or remove the file: the program "
                                "then starts with its usual settings."};
}

void StoredSettings::SaveSettings() {
  VisitSettings(settings_, [this](const std::string& key, const auto& value, const char*) {
    store_.Set(config::Application, config::Section, key, ToText(numbers_, value));
  });
  store_.Set(config::Application, config::Section, "Number of samples", "3");
  ShowStatus();
}

void StoredSettings::ShowStatus() {
  if (Status) Status->StatusUpdate();
}

void StoredSettings::SaveActiveTab() {
  store_.Set(config::Application, config::Section, config::ActiveTabKey,
             numbers_.General(settings_.MainActiveTab));
}

}  // namespace subroutines
