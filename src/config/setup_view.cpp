#include "config/setup_view.h"

#include <array>

namespace subroutines {

namespace setup = forms::setup_field;

namespace {

constexpr std::int32_t DefaultBaseSamples = 400;
constexpr std::array<float, 2> CurrentFactors = {1, 1000};
constexpr std::array<float, 3> VoltageFactors = {1, 1000, 1000000};

template <std::size_t N>
float FactorOf(const std::array<float, N>& factors, const platform::ComboBox& list) {
  return list.ListIndex < 0 ? 1.0F : factors[static_cast<std::size_t>(list.ListIndex.Get())];
}

}  // namespace

bool PathExists(const platform::FileSystem& files, const std::string& path) {
  std::string folder = path;
  const std::string separator = files.Separator();
  while (folder.size() > 1 && (folder.back() == '\\' || folder.ends_with(separator))) {
    folder.pop_back();
  }
  return !folder.empty() && files.DirectoryExists(folder);
}

SetupView::SetupView(const SetupParts& parts, config::Settings& settings,
                     config::RunSettings& present, StoredSettings& stored,
                     const platform::NumberText& numbers, platform::FolderDialog& folders)
    : parts_(parts),
      settings_(settings),
      present_(present),
      stored_(stored),
      numbers_(numbers),
      folders_(folders) {
  for (std::size_t field = 0; field < parts_.Setup.Text1.size(); ++field) {
    parts_.Setup.Text1[field].Change = [this, field] { Text1_Change(field); };
  }
  for (const std::size_t field : {setup::Content1, setup::Content2}) {
    parts_.Setup.Text1[field].DblClick = [this, field] {
      parts_.Setup.Text1[field].Text = std::string();
    };
  }
  parts_.Setup.Command3.Click = [this] { Command3_Click(); };
  for (std::size_t i = 0; i < parts_.Setup.Combo4.size(); ++i) {
    parts_.Setup.Combo4[i].Click = [this, i] { Combo4_Click(i); };
  }
  for (std::size_t i = 0; i < parts_.Shared.Option3.size(); ++i) {
    parts_.Shared.Option3[i].Click = [this, i] { Option3_Click(i); };
  }
}

void SetupView::LoadFields() {
  present_.BaseSamples = DefaultBaseSamples;
  parts_.Setup.Text1[setup::Samplings].Text = numbers_.General(DefaultBaseSamples);
  parts_.Setup.Text1[setup::FilterCondition].Text = settings_.FilterString;
  parts_.Setup.Text1[setup::StoragePath].Text = settings_.StoragePath;
}

void SetupView::LoadStreams() {
  parts_.Setup.Text1[setup::BaseFrequency].Text = numbers_.General(settings_.BaseFrequency);
  parts_.Setup.Text1[setup::Content1].Text = settings_.FilterContent[0];
  parts_.Setup.Text1[setup::Interval].Text = numbers_.General(settings_.InternalDelay);
  parts_.Setup.Text1[setup::Content2].Text = settings_.FilterContent[1];
  if (!parts_.Shared.Option3[1].Caption.Get().empty()) return;
  for (std::size_t second = 1; second < parts_.Shared.Option3.size(); second += 2) {
    parts_.Shared.Option3[second].Visible = false;
  }
}

void SetupView::SelectFirstStation() {
  for (std::size_t first = 0; first < parts_.Shared.Option3.size(); first += 2) {
    parts_.Shared.Option3[first].Value = true;
  }
  present_.ActiveStream = 1;
}

void SetupView::FillUnitLists() {
  for (const char* unit : {"A", "mA"}) parts_.Setup.Combo4[forms::unit_list::Current].AddItem(unit);
  parts_.Setup.Combo4[forms::unit_list::Current].ListIndex = settings_.UnitCurrent;
  for (const char* unit : {"kV", "V", "mV"})
    parts_.Setup.Combo4[forms::unit_list::Voltage].AddItem(unit);
  parts_.Setup.Combo4[forms::unit_list::Voltage].ListIndex = settings_.UnitVoltage;
}

void SetupView::Text1_Change(std::size_t field) {
  if (!TakeField(field, parts_.Setup.Text1[field].Text)) return;
  stored_.SaveSettings();
  Blocks->RebuildBlockArrays(present_.BaseSamples);
}

/// False where the change ends early: nothing is saved and no array is rebuilt.
bool SetupView::TakeField(std::size_t field, const std::string& text) {
  switch (field) {
    case setup::FilterCondition:
      settings_.FilterString = text;
      break;
    case setup::BaseFrequency:
      settings_.BaseFrequency = numbers_.ToSingle(text);
      break;
    case setup::Samplings:
      present_.BaseSamples = numbers_.ToInt32("0" + text);
      return present_.BaseSamples != 0;
    case setup::StoragePath:
      settings_.StoragePath = text;
      break;
    case setup::Content1:
      FilterRule(0, field);
      break;
    case setup::Interval:
      settings_.InternalDelay = platform::Round<std::int16_t>(platform::NumberText::Leading(text));
      break;
    case setup::Content2:
      FilterRule(1, field);
      break;
    default:
      settings_.ChannelName[field - setup::FirstName] = text;
      parts_.Scope.Check2[field - setup::FirstName].Caption = text;
      Names->ShowChannelNames();
      break;
  }
  return true;
}

void SetupView::FilterRule(std::size_t index, std::size_t field) {
  platform::TextBox& box = parts_.Setup.Text1[field];
  std::string value = box.Text;
  if (value.empty()) {
    value = config::NoContent;
  } else {
    present_.StreamCount = static_cast<std::int16_t>(index + 1);
  }
  settings_.FilterContent[index] = value;
  for (std::size_t station = index; station < parts_.Shared.Option3.size(); station += 2) {
    parts_.Shared.Option3[station].Caption = value;
  }
  // Emptying the field raises its change event once more, which runs this rule with the empty text.
  if (box.Text == config::NoContent) box.Text = std::string();
}

void SetupView::Command3_Click() {
  const auto folder = folders_.Browse("Bitte einen Ordner auswählen", settings_.StoragePath);
  if (!folder) return;
  settings_.StoragePath = *folder;
  parts_.Setup.Text1[setup::StoragePath].Text = settings_.StoragePath;
  stored_.SaveSettings();
}

void SetupView::Combo4_Click(std::size_t index) {
  // The names come first: their captions read the unit from the lists, which hold it already.
  Names->ShowChannelNames();
  const auto chosen = platform::Narrow<std::int16_t>(parts_.Setup.Combo4[index].ListIndex.Get());
  (index == 0 ? settings_.UnitCurrent : settings_.UnitVoltage) = chosen;
  present_.CurrentUnitFactor =
      FactorOf(CurrentFactors, parts_.Setup.Combo4[forms::unit_list::Current]);
  present_.VoltageUnitFactor =
      FactorOf(VoltageFactors, parts_.Setup.Combo4[forms::unit_list::Voltage]);
  stored_.SaveSettings();
}

void SetupView::Option3_Click(std::size_t index) {
  if (index > 5) return;
  // The first filter slot holds the chosen stream, the second the other one.
  const bool second = index % 2 == 1;
  settings_.FilterContent[second ? 1 : 0] = parts_.Setup.Text1[setup::Content1].Text;
  settings_.FilterContent[second ? 0 : 1] = parts_.Setup.Text1[setup::Content2].Text;
  present_.ActiveStream = second ? 2 : 1;
  Blocks->StationChosen();
}

}  // namespace subroutines
