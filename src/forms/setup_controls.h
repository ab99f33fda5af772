#pragma once

#include <array>

#include "platform/controls/buttons.h"
#include "platform/controls/check_box.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/label.h"
#include "platform/controls/text_box.h"

namespace forms {

/// The rows of `Label2`: the captions beside the fields of the Setup view.
namespace setup_caption {
inline constexpr std::size_t Adapter = 0;
inline constexpr std::size_t FilterCondition = 1;
inline constexpr std::size_t StoragePath = 2;
inline constexpr std::size_t Printer = 3;
inline constexpr std::size_t Content1 = 4;
inline constexpr std::size_t Content2 = 5;
inline constexpr std::size_t Decimals = 6;
inline constexpr std::size_t Interval = 7;
inline constexpr std::size_t IntervalUnit = 8;
inline constexpr std::size_t Frequency = 9;
inline constexpr std::size_t FrequencyUnit = 10;
inline constexpr std::size_t CurrentUnit = 11;
inline constexpr std::size_t VoltageUnit = 12;
inline constexpr std::size_t FirstNames = 13;
inline constexpr std::size_t SecondNames = 14;
inline constexpr std::size_t Samplings = 15;
inline constexpr std::size_t SamplingsNote = 16;
inline constexpr std::size_t Count = 17;
}  // namespace setup_caption

/// The fields of `Text1` on the Setup view.
namespace setup_field {
inline constexpr std::size_t FilterCondition = 0;
inline constexpr std::size_t BaseFrequency = 1;
inline constexpr std::size_t Samplings = 2;
inline constexpr std::size_t StoragePath = 3;
/// The names of the eight channels, one field behind the other.
inline constexpr std::size_t FirstName = 4;
inline constexpr std::size_t LastName = 11;
inline constexpr std::size_t Content1 = 12;
inline constexpr std::size_t Interval = 13;
inline constexpr std::size_t Content2 = 14;
inline constexpr std::size_t Count = 15;
}  // namespace setup_field

/// The lists of units: `Combo4`.
namespace unit_list {
inline constexpr std::size_t Current = 0;
inline constexpr std::size_t Voltage = 1;
inline constexpr std::size_t Count = 2;
}  // namespace unit_list

/// The controls of the Setup view.
struct SetupControls {
  SetupControls();

  platform::ComboBox Combo1;
  platform::ComboBox Combo2;
  platform::ComboBox Combo3;
  std::array<platform::ComboBox, unit_list::Count> Combo4;
  std::array<platform::TextBox, setup_field::Count> Text1;
  platform::CommandButton Command3;
  platform::CommandButton Command7;
  /// DC labels on the Values view.
  platform::CheckBox Check4;
  std::array<platform::Label, setup_caption::Count> Label2;
  platform::GroupBox Frame5;
  /// Name and version of the program.
  platform::Label Label13;
  /// What a user can do about interfaces that cannot capture.
  platform::Label CaptureAdvice;

 private:
  void DescribeCaptions();
  void DescribeTips();
};

}  // namespace forms
