#include "forms/shared_controls.h"

namespace forms {

SharedControls::SharedControls() {
  for (std::size_t first = 0; first < Option3.size(); first += 2) {
    platform::OptionButton::Group({&Option3[first], &Option3[first + 1]});
  }
  for (platform::OptionButton& choice : Option3) {
    choice.ToolTipText = "select the station ID to aquire his values";
  }
  Label3[side_caption::Support].ToolTipText = "sends an email to the support team of this program";
  Label3[side_caption::Voltage].Caption = "voltage:";
  Label3[side_caption::Current].Caption = "current:";
  Label3[side_caption::SampleDifference].Caption = "sample diff for channel A/B/C";
  Label3[side_caption::OverflowValue].Caption = "overflo&w value:";
  Label3[side_caption::Seconds].Caption = "seconds";
  Label3[side_caption::TimeAround].Caption = "ti&me before/after";
  Label3[side_caption::Pause].Caption = "seconds pause after trigger event";
}

}  // namespace forms
