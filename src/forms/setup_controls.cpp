#include "forms/setup_controls.h"

namespace forms {

SetupControls::SetupControls() {
  DescribeCaptions();
  DescribeTips();
}

void SetupControls::DescribeCaptions() {
  Label2[setup_caption::Adapter].Caption = "&Network adapter:";
  Label2[setup_caption::FilterCondition].Caption = "P&acket filter condition:";
  Label2[setup_caption::FilterCondition].ToolTipText =
      "filter condition for all packets, receiving network adapter";
  Label2[setup_caption::StoragePath].Caption = "Data path for storin&g data:";
  Label2[setup_caption::Printer].Caption = "Stan&dard printer:";
  Label2[setup_caption::Content1].Caption = "Packet content filter #&1:";
  Label2[setup_caption::Content1].ToolTipText = "additional filter";
  Label2[setup_caption::Content2].Caption = "Packet content filter #&2:";
  Label2[setup_caption::Content2].ToolTipText = "additional filter";
  Label2[setup_caption::Decimals].Caption = "Decimal p&oint for values:";
  Label2[setup_caption::Interval].Caption = "&Interval for refreshing data:";
  Label2[setup_caption::IntervalUnit].Caption = "in ms";
  Label2[setup_caption::Frequency].Caption = "Base fre&quency:";
  Label2[setup_caption::FrequencyUnit].Caption = "in Hz";
  Label2[setup_caption::CurrentUnit].Caption = "&Unit for current:";
  Label2[setup_caption::VoltageUnit].Caption = "Unit for voltage:";
  Label2[setup_caption::FirstNames].Caption = "Names of first group of 4 data sources:";
  Label2[setup_caption::SecondNames].Caption = "Names of second group of 4 data sources:";
  Label2[setup_caption::Samplings].Caption = "&Samplings:";
  Label2[setup_caption::SamplingsNote].Caption =
      "After changing please adjust the interval for refreshing data!";
  Frame5.Caption = "Special functions:";
  Command3.Caption = "&Browse";
  Command7.Caption = "&Find streams";
  Check4.Caption = "estimate DC &offset";
}

void SetupControls::DescribeTips() {
  Combo1.ToolTipText = "choose the adapter which is connected to the IEC61850.9.2LE bus";
  Combo2.ToolTipText = "the choosen printer is standard printer while program is running";
  Text1[setup_field::FilterCondition].ToolTipText =
      "please check help of WinPcap or wireshark to get filter conditions ('ether proto 0x88ba' is "
      "fixed integrated)";
  Text1[setup_field::BaseFrequency].ToolTipText = "base frequency of phase shift calculation";
  Text1[setup_field::StoragePath].ToolTipText = "hint: use content of clipboard to get exact path";
  Text1[setup_field::Content1].ToolTipText = "i.e. Station ID, can be set to blank by double click";
  Text1[setup_field::Interval].ToolTipText =
      "delay between RMS calculation of one sample set (i.e. 500ms is a good choice)";
  for (const std::size_t field : {setup_field::Content2, setup_field::Samplings}) {
    Text1[field].ToolTipText =
        "please, leave it empty, when there is no content to filter (i.e. Station ID)  - also done "
        "by doubleclicking into this area";
  }
  for (std::size_t name = setup_field::FirstName; name <= setup_field::LastName; ++name) {
    Text1[name].MaxLength = 21;
  }
  for (platform::ComboBox* list : {&Combo3, &Combo4[0], &Combo4[1]}) {
    list->ToolTipText =
        "change number of decimals (i.e. slow computers have problems with a lot of them)";
  }
  Check4.ToolTipText = "after checked, you will find under 'Values' the DC values mentioned";
}

}  // namespace forms
