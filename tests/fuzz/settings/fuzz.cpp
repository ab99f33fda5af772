// Whatever stands in the store: the program starts with it or says how to mend it, and what it
// writes there is read back as it was.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "config/stored_settings.h"
#include "fuzz/demand.h"
#include "fuzz/script.h"
#include "support/scene.h"
#include "support/stored_defaults.h"

namespace {

using fuzz::Demand;
using std::chrono_literals::operator""s;

constexpr platform::NumberLocale Locales[] = {{'.', ','}, {',', '.'}};

/// Keys with their texts, a line each.
void Fill(fuzz::Script& script, support::FakeStore& store) {
  const auto& rows = support::StoredDefaults();
  while (!script.Ended()) {
    const std::string& key = rows[script.Below(rows.size())].Key;
    std::string text;
    while (!script.Ended()) {
      const auto sign = static_cast<char>(script.Byte());
      if (sign == '\n') break;
      text += sign;
    }
    store.Texts[key] = text;
  }
}

/// The first key whose text does not convert.
std::optional<std::string> FirstRefused(const support::FakeStore& store,
                                        const platform::NumberText& numbers) {
  for (const support::StoredRow& row : support::StoredDefaults()) {
    const auto stored = store.Texts.find(row.Key);
    if (stored == store.Texts.end()) continue;
    try {
      const std::string& text = stored->second;
      if (row.Kind == support::StoredType::Integer) numbers.ToInt16(text);
      if (row.Kind == support::StoredType::Float) numbers.ToSingle(text);
      if (row.Kind == support::StoredType::Boolean) numbers.ToBoolean(text);
    } catch (const platform::Failure&) {
      return row.Key;
    }
  }
  return std::nullopt;
}

/// What is written is read back: a second writing is the first.
void WriteAndReadBack(support::FakeStore& store, const platform::NumberText& numbers) {
  config::Settings settings;
  subroutines::StoredSettings(store, numbers, settings).LoadSettings();
  support::FakeStore once;
  subroutines::StoredSettings(once, numbers, settings).SaveSettings();
  config::Settings again;
  subroutines::StoredSettings(once, numbers, again).LoadSettings();
  support::FakeStore twice;
  subroutines::StoredSettings(twice, numbers, again).SaveSettings();
  Demand(once.Texts == twice.Texts, "what is written is read back");
}

void DemandWayOut(const platform::Failure& failure, const std::string& names) {
  Demand(failure.Text().find("Settings file: settings of Vornik") != std::string::npos,
         "a start that fails names the settings file: " + failure.Text());
  Demand(failure.Text().find(names) != std::string::npos,
         "a start that fails names the setting: " + failure.Text());
}

/// A block, and the frame in front of it that tells the length.
const std::vector<support::FrameBytes>& Block() {
  static const auto block = [] {
    std::vector<support::FrameBytes> frames;
    for (int i = 0; i < 401; ++i) frames.push_back(support::SineFrame(i, 1, 1));
    return frames;
  }();
  return block;
}

/// Each page, and a run on each of the live views.
void UseProgram(support::Scene& scene) {
  for (std::int16_t tab = forms::tab::Info; tab < forms::tab::Exit; ++tab) scene.Select(tab);
  forms::Main& main = scene.Main;
  const std::pair<std::int16_t, platform::CWButton*> runs[] = {
      {forms::tab::Values, &main.CWButton4},
      {forms::tab::Phasor, &main.CWButton2},
      {forms::tab::Waveforms, &main.CWButton1}};
  for (const auto& [tab, button] : runs) {
    scene.Select(tab);
    scene.Elapse(1s);
    button->Value = true;
    for (const support::FrameBytes& frame : Block()) scene.Receive(frame);
  }
  scene.Select(forms::tab::Info);
  scene.Elapse(1s);
  Demand(!scene.State.CaptureRunning, "capture rests on the first page");
}

void Start(const support::FakeStore& store, platform::NumberLocale locale) {
  support::Scene scene;
  scene.Numbers = platform::NumberText(locale);
  scene.Store.Texts = store.Texts;
  const std::optional<std::string> refused = FirstRefused(store, scene.Numbers);
  try {
    scene.App.Load();
  } catch (const platform::Failure& failure) {
    return DemandWayOut(failure, refused ? "'" + *refused + "'" : "A stored setting");
  }
  Demand(!refused, "a text that does not convert keeps the program from its start");
  UseProgram(scene);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Script script({data, size});
  const platform::NumberLocale locale = script.OneOf(Locales);
  support::FakeStore store;
  Fill(script, store);
  const platform::NumberText numbers(locale);
  if (!FirstRefused(store, numbers)) WriteAndReadBack(store, numbers);
  Start(store, locale);
  return 0;
}
