#include "support/stored_defaults.h"

namespace support {

const std::vector<StoredRow>& StoredDefaults() {
  static const std::vector<StoredRow> rows = {
      {"Path of stored data", StoredType::Text, "c:\\StoredData"},
      {"Used Networkadapter", StoredType::Integer, "1"},
      {"Name of used Networkadapter", StoredType::Text, ""},
      {"Unit Resolution", StoredType::Integer, "0"},
      {"UnitCurrent", StoredType::Integer, "0"},
      {"UnitVoltage", StoredType::Integer, "0"},
      {"Internal Delay", StoredType::Integer, "500"},
      {"DataName A", StoredType::Text, "Current Sensor A"},
      {"DataName B", StoredType::Text, "Current Sensor B"},
      {"DataName C", StoredType::Text, "Current Sensor C"},
      {"DataName D", StoredType::Text, "Current Sensor N"},
      {"DataName E", StoredType::Text, "Voltage Sensor A"},
      {"DataName F", StoredType::Text, "Voltage Sensor B"},
      {"DataName G", StoredType::Text, "Voltage Sensor C"},
      {"DataName H", StoredType::Text, "Voltage Sensor N"},
      {"Printerchoice", StoredType::Integer, "0"},
      {"Filterstring", StoredType::Text, ""},
      {"FilterContentString", StoredType::Text, ""},
      {"FilterContentString2", StoredType::Text, ""},
      {"Sensor A enabled", StoredType::Integer, "1"},
      {"Sensor B enabled", StoredType::Integer, "1"},
      {"Sensor C enabled", StoredType::Integer, "1"},
      {"Sensor D enabled", StoredType::Integer, "1"},
      {"Sensor E enabled", StoredType::Integer, "1"},
      {"Sensor F enabled", StoredType::Integer, "1"},
      {"Sensor G enabled", StoredType::Integer, "1"},
      {"Sensor H enabled", StoredType::Integer, "1"},
      {"Frequency", StoredType::Float, "50"},
      {"ACDC", StoredType::Boolean, "False"},
      {"SetupDone", StoredType::Boolean, "False"},
      {"CurrentTriggerWave", StoredType::Float, "20"},
      {"VoltageTriggerWave", StoredType::Float, "15"},
      {"BeforeTriggerWaveTime", StoredType::Float, "2"},
      {"AfterTriggerWaveTime", StoredType::Float, "5"},
      {"SingleTrigger", StoredType::Integer, "1"},
      {"TriggerPause", StoredType::Integer, "10"},
      {"MainActiveTab", StoredType::Integer, "1"},
      {"FileFormat", StoredType::Text, "TXT"},
  };
  return rows;
}

}  // namespace support
