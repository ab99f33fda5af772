#include "measure/values_view.h"

#include <cstdint>
#include <string>

#include "base/raised.h"
#include "forms/run_tips.h"
#include "platform/stream_format.h"

namespace subroutines {

namespace {

constexpr const char* Formats[] = {"###,###,##0.0000",
                                   "###,###,##0.000",
                                   "###,###,##0.00",
                                   "###,###,###,##0.0",
                                   "###,###,###,##0",
                                   "0.0000",
                                   "0.000",
                                   "0.00",
                                   "0.0",
                                   "0"};

}  // namespace

ValuesView::ValuesView(forms::ValuesControls& values, forms::SharedControls& shared,
                       forms::SetupControls& names, forms::PhasorControls& table,
                       const ViewContext& context)
    : values_(values), shared_(shared), setup_(names), table_(table), context_(context) {
  values_.CWButton4.ValueChanged = [this] { CWButton4_ValueChanged(); };
  values_.Check5.Click = [this] { Check5_Click(); };
  setup_.Check4.Click = [this] { Check4_Click(); };
  setup_.Combo3.Click = [this] { Combo3_Click(); };
  for (std::size_t i = 0; i < values_.Label5.size(); ++i) {
    values_.Label5[i].Click = [this, i] { Label5_Click(i); };
  }
}

void ValuesView::Load() {
  values_.CWButton4.BackColor = platform::Rgb{204, 229, 254};
  setup_.Check4.Value = context_.Settings.ACDC ? 1 : 0;
}

void ValuesView::Withdraw() {
  values_.Check5.Visible = false;
  values_.CWButton4.Visible = false;
}

void ValuesView::Show(const platform::Routine&) {
  for (platform::Label& value : values_.Label5) value.Visible = true;
  shared_.Picture1[forms::logo::Values].Visible = true;
  values_.Check5.Visible = true;
  values_.CWButton4.Visible = true;
  values_.Label16.Visible = true;
  context_.Stations.Show(forms::station::Values);
}

void ValuesView::Hide() {
  values_.Label16.Visible = false;
  context_.Stations.Hide(forms::station::Values);
  for (platform::Label& value : values_.Label5) value.Visible = false;
  shared_.Picture1[forms::logo::Values].Visible = false;
}

void ValuesView::ClearValues() {
  for (std::size_t i = 0; i < values_.Label5.size(); ++i) {
    values_.Label5[i].Caption = context_.Numbers.Format(0, context_.Present.UnitFormat);
    values_.Label12[i + forms::small_label::FirstDc].Caption = std::string();
  }
}

void ValuesView::CalculateValues() {
  const auto estimates = platform::CWDSP::AcDcEstimates(context_.Block.SignalValues);
  for (std::size_t i = 0; i < values_.Label5.size(); ++i) {
    const auto [ac, dc] = estimates[i];
    context_.Readings.RmsValues[i] = ac;
    values_.Label12[i + forms::small_label::FirstDc].Caption =
        context_.Settings.ACDC ? "DC:" + context_.Numbers.Format(dc, context_.Present.UnitFormat)
                               : std::string();
    values_.Label5[i].Caption =
        context_.Numbers.Format(context_.Readings.RmsValues[i], context_.Present.UnitFormat);
  }
}

void ValuesView::FillFormatList() {
  for (const char* format : Formats) setup_.Combo3.AddItem(format);
  // Counting down never reaches the list from below.
  if (context_.Settings.UnitResolution < 0) context_.Settings.UnitResolution = 0;
  while (context_.Settings.UnitResolution >= setup_.Combo3.ListCount())
    --context_.Settings.UnitResolution;
  setup_.Combo3.ListIndex = context_.Settings.UnitResolution;
}

void ValuesView::ShowChannelNames() {
  // Writing a name field raises its change event, which asks for the names again.
  if (showingNames_) return;
  const platform::Raised showing(showingNames_);
  for (std::size_t i = 0; i < values_.Label6.size(); ++i) {
    setup_.Text1[i + forms::setup_field::FirstName].Text = context_.Settings.ChannelName[i];
    const std::size_t list =
        platform::channels::IsCurrent(i) ? forms::unit_list::Current : forms::unit_list::Voltage;
    const std::string unit = setup_.Combo4[list].Text();
    values_.Label6[i].Caption = context_.Settings.ChannelName[i] + " / [" + unit + "]";
    table_.Grid1.Cell[i + 1][0] = context_.Settings.ChannelName[i];
  }
}

void ValuesView::CWButton4_ValueChanged() {
  const packetroutines::PageVisit visit(context_.State);
  context_.Events.Pump();
  // A view that is left by now was stopped by that, and what runs is another one.
  if (!values_.CWButton4.Enabled || visit.Over()) return;
  if (values_.CWButton4.Value) {
    BeginRun();
  } else {
    EndRun();
  }
}

void ValuesView::BeginRun() {
  ClearValues();
  context_.Capture.CountBlocksAnew();
  values_.CWButton4.Enabled = false;
  values_.CWButton4.ToolTipText = forms::StopTip;
  context_.Capture.BeginRun("LookingForValues");
}

void ValuesView::EndRun() {
  values_.CWButton4.ToolTipText = forms::RunValuesTip;
  values_.CWButton4.Enabled = false;
  context_.Run.ReleaseButtons();
  context_.Capture.EndRun("LookingForValues");
}

void ValuesView::Check5_Click() {
  context_.Events.Pump();
  ClearValues();
  if (values_.Check5.Value == 1) context_.Readings.RealTimeMode = true;
  if (values_.Check5.Value == 0) context_.Readings.RealTimeMode = false;
  ShowLiveReading();
}

void ValuesView::Label5_Click(std::size_t channel) {
  context_.Readings.RealTimeChannel = static_cast<std::int16_t>(channel + 1);
  if (context_.State.RealTimeMode) ClearValues();
  ShowLiveReading();
}

void ValuesView::ShowLiveReading() {
  values_.LiveReading =
      context_.State.RealTimeMode
          ? std::optional(static_cast<std::size_t>(context_.State.RealTimeChannel - 1))
          : std::nullopt;
}

void ValuesView::Check4_Click() {
  context_.Settings.ACDC = setup_.Check4.Value != 0;
  context_.Stored.SaveSettings();
}

void ValuesView::Combo3_Click() {
  context_.Settings.UnitResolution = platform::Narrow<std::int16_t>(setup_.Combo3.ListIndex.Get());
  context_.Present.UnitFormat = setup_.Combo3.Text();
  context_.Stored.SaveSettings();
}

}  // namespace subroutines
