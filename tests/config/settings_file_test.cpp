#include <gmock/gmock.h>

#include "config/stored_settings.h"
#include "support/failures.h"
#include "support/fake_platform.h"
#include "support/stored_defaults.h"

namespace {

using platform::failure::Overflow;
using platform::failure::TypeMismatch;
using support::FailureOf;
using support::StoredDefaults;
using support::StoredRow;
using support::StoredType;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

std::vector<std::string> Keys() {
  std::vector<std::string> keys;
  for (const StoredRow& row : StoredDefaults()) keys.push_back(row.Key);
  return keys;
}

/// A store that also writes down which keys are read.
class WatchedStore : public support::FakeStore {
 public:
  std::string Get(const std::string& application, const std::string& section,
                  const std::string& key, const std::string& fallback) const override {
    Read.push_back(key);
    return FakeStore::Get(application, section, key, fallback);
  }
  mutable std::vector<std::string> Read;
};

/// A status bar that notes the key behind which it was refreshed.
class StatusBar : public subroutines::StatusUser {
 public:
  explicit StatusBar(const support::FakeStore& store) : store_(store) {}
  void StatusUpdate() override { LastKey = store_.Written.back(); }

  std::string LastKey;

 private:
  const support::FakeStore& store_;
};

class StoredSettings : public testing::Test {
 protected:
  /// What loading does where a key holds this text.
  std::int32_t FailureOfLoading(const std::string& key, const std::string& text) {
    store.Texts = {{key, text}};
    return FailureOf([&] { file.LoadSettings(); });
  }

  WatchedStore store;
  platform::NumberText numbers;
  config::Settings settings;
  subroutines::StoredSettings file{store, numbers, settings};
};

TEST_F(StoredSettings, ReadsEveryKeyInItsOrder) {
  file.LoadSettings();

  EXPECT_THAT(store.Read, ElementsAreArray(Keys()));
}

TEST_F(StoredSettings, WritesEveryKeyInItsOrderAndTheNumberOfSamplesLast) {
  file.LoadSettings();

  file.SaveSettings();

  std::vector<std::string> keys = Keys();
  keys.emplace_back("Number of samples");
  EXPECT_THAT(store.Written, ElementsAreArray(keys));
}

TEST_F(StoredSettings, AnAbsentStoreGivesEveryDefault) {
  file.LoadSettings();
  EXPECT_THAT(store.Texts, IsEmpty());

  file.SaveSettings();

  for (const StoredRow& row : StoredDefaults())
    EXPECT_EQ(store.Texts[row.Key], row.Default) << row.Key;
}

TEST_F(StoredSettings, EachKeyGoesToItsVariable) {
  store.Texts = {{"Path of stored data", "d:\\data"},
                 {"Used Networkadapter", "3"},
                 {"Name of used Networkadapter", "eth0"},
                 {"Unit Resolution", "7"},
                 {"UnitCurrent", "1"},
                 {"UnitVoltage", "2"},
                 {"Internal Delay", "250"},
                 {"Printerchoice", "4"},
                 {"Filterstring", "and vlan 5"},
                 {"FilterContentString", "MU01"},
                 {"FilterContentString2", "MU02"},
                 {"Frequency", "60"},
                 {"ACDC", "True"},
                 {"CurrentTriggerWave", "21.5"},
                 {"VoltageTriggerWave", "16.5"},
                 {"BeforeTriggerWaveTime", "2.5"},
                 {"AfterTriggerWaveTime", "5.5"},
                 {"SingleTrigger", "-1"},
                 {"TriggerPause", "11"},
                 {"MainActiveTab", "6"},
                 {"FileFormat", "COMTRADE"}};

  file.LoadSettings();

  EXPECT_EQ(settings.StoragePath, "d:\\data");
  EXPECT_EQ(settings.AdapterIndex, 3);
  EXPECT_EQ(settings.AdapterName, "eth0");
  EXPECT_EQ(settings.UnitResolution, 7);
  EXPECT_EQ(settings.UnitCurrent, 1);
  EXPECT_EQ(settings.UnitVoltage, 2);
  EXPECT_EQ(settings.InternalDelay, 250);
  EXPECT_EQ(settings.PrinterChoice, 4);
  EXPECT_EQ(settings.FilterString, "and vlan 5");
  EXPECT_THAT(settings.FilterContent, ElementsAre("MU01", "MU02"));
  EXPECT_EQ(settings.BaseFrequency, 60.0F);
  EXPECT_TRUE(settings.ACDC);
  EXPECT_FALSE(settings.SetupDone);
  EXPECT_EQ(settings.CurrentTriggerWave, 21.5F);
  EXPECT_EQ(settings.VoltageTriggerWave, 16.5F);
  EXPECT_EQ(settings.BeforeTriggerWaveTime, 2.5F);
  EXPECT_EQ(settings.AfterTriggerWaveTime, 5.5F);
  EXPECT_EQ(settings.SingleTrigger, -1);
  EXPECT_EQ(settings.TriggerPause, 11);
  EXPECT_EQ(settings.MainActiveTab, 6);
  EXPECT_EQ(settings.FileFormat, "COMTRADE");
}

TEST_F(StoredSettings, EachChannelHasItsNameAndItsSensor) {
  const std::string letters = "ABCDEFGH";
  for (std::size_t i = 0; i < letters.size(); ++i) {
    store.Texts[std::string("DataName ") + letters[i]] = "name " + std::to_string(i);
    store.Texts[std::string("Sensor ") + letters[i] + " enabled"] = std::to_string(10 + i);
  }

  file.LoadSettings();

  EXPECT_THAT(settings.ChannelName, ElementsAre("name 0", "name 1", "name 2", "name 3", "name 4",
                                                "name 5", "name 6", "name 7"));
  EXPECT_THAT(settings.SensorEnabled, ElementsAre(10, 11, 12, 13, 14, 15, 16, 17));
}

TEST_F(StoredSettings, TheDoneMarkHasItsOwnKey) {
  store.Texts["SetupDone"] = "True";

  file.LoadSettings();

  EXPECT_TRUE(settings.SetupDone);
  EXPECT_FALSE(settings.ACDC);
}

TEST_F(StoredSettings, TheNumberOfSamplesIsWrittenAsThree) {
  store.Texts["Number of samples"] = "800";

  file.LoadSettings();
  file.SaveSettings();

  EXPECT_EQ(store.Texts["Number of samples"], "3");
}

TEST_F(StoredSettings, TheNumberOfSamplesHasNoEffectWhateverItHolds) {
  EXPECT_EQ(FailureOfLoading("Number of samples", "no number"), 0);
}

TEST_F(StoredSettings, ATextThatDoesNotConvertFailsAsATypeMismatch) {
  for (const StoredRow& row : StoredDefaults()) {
    EXPECT_EQ(FailureOfLoading(row.Key, "5O0"), row.Kind == StoredType::Text ? 0 : TypeMismatch)
        << row.Key;
  }
}

TEST_F(StoredSettings, AFailureNamesTheKeyItsTextAndThePlace) {
  store.Texts = {{"Internal Delay", "soon"}};

  EXPECT_EQ(support::RaisedBy([&] { file.LoadSettings(); }).Text(),
            "Type mismatch\r\n\r\nThe stored setting 'Internal Delay' is 'soon'.\r\n"
            "Settings file: settings of Vornik\r\n\r\n"
            "Please correct the setting there, or remove the file: the program then starts with "
            "its usual settings.");
}

TEST_F(StoredSettings, AnEmptyTextIsNoNumber) {
  for (const StoredRow& row : StoredDefaults()) {
    EXPECT_EQ(FailureOfLoading(row.Key, ""), row.Kind == StoredType::Text ? 0 : TypeMismatch)
        << row.Key;
  }
}

TEST_F(StoredSettings, AnIntegerBeyondSixteenBitsOverflows) {
  for (const StoredRow& row : StoredDefaults()) {
    const std::int32_t expected = row.Kind == StoredType::Integer ? Overflow : 0;
    EXPECT_EQ(FailureOfLoading(row.Key, "40000"), expected) << row.Key;
    EXPECT_EQ(FailureOfLoading(row.Key, "-32769"), expected) << row.Key;
  }
}

TEST_F(StoredSettings, AFloatBeyondItsRangeOverflows) {
  EXPECT_EQ(FailureOfLoading("Frequency", "1E+39"), Overflow);
}

TEST_F(StoredSettings, BooleansAreStoredAsWords) {
  settings.ACDC = true;

  file.SaveSettings();

  EXPECT_EQ(store.Texts["ACDC"], "True");
  EXPECT_EQ(store.Texts["SetupDone"], "False");
}

TEST_F(StoredSettings, FloatsAreStoredAsTheirShortestText) {
  settings.BaseFrequency = 0.1F;
  settings.CurrentTriggerWave = 18.75F;
  settings.VoltageTriggerWave = 16.666666F;

  file.SaveSettings();

  EXPECT_EQ(store.Texts["Frequency"], "0.1");
  EXPECT_EQ(store.Texts["CurrentTriggerWave"], "18.75");
  EXPECT_EQ(store.Texts["VoltageTriggerWave"], "16.666666");
}

TEST_F(StoredSettings, FloatsAreStoredWithTheSeparatorOfTheLocale) {
  numbers = platform::NumberText({',', '.'});
  settings.BaseFrequency = 49.95F;
  file.SaveSettings();
  EXPECT_EQ(store.Texts["Frequency"], "49,95");

  settings.BaseFrequency = 0;
  file.LoadSettings();
  EXPECT_EQ(settings.BaseFrequency, 49.95F);
}

TEST_F(StoredSettings, AFloatOfAnotherLocaleChangesItsValue) {
  store.Texts["Frequency"] = "49,95";

  file.LoadSettings();

  EXPECT_EQ(settings.BaseFrequency, 4995.0F);
}

TEST_F(StoredSettings, ASaveRefreshesTheStatusBarAfterItsLastKey) {
  StatusBar bar(store);
  file.Status = bar;

  file.SaveSettings();

  EXPECT_EQ(bar.LastKey, "Number of samples");
}

TEST_F(StoredSettings, TheActiveTabCanBeStoredAlone) {
  settings.MainActiveTab = 7;
  StatusBar bar(store);
  file.Status = bar;

  file.SaveActiveTab();

  EXPECT_THAT(store.Written, ElementsAre("MainActiveTab"));
  EXPECT_EQ(store.Texts["MainActiveTab"], "7");
  EXPECT_EQ(bar.LastKey, "");
}

}  // namespace
