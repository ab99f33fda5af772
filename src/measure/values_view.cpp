#include "measure/values_view.h"

#include <string>

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
constexpr std::size_t FirstDcLabel = 8;
constexpr std::size_t Currents = 4;

}  // namespace

ValuesView::ValuesView(forms::Main& main, config::Settings& settings, config::Session& session,
                       SettingsFile& file, packetroutines::AcquisitionState& state,
                       const packetroutines::BlockArrays& block,
                       packetroutines::CaptureSession& capture, platform::EventQueue& events,
                       const platform::NumberText& numbers)
    : main_(main),
      settings_(settings),
      session_(session),
      file_(file),
      state_(state),
      block_(block),
      capture_(capture),
      events_(events),
      numbers_(numbers) {
  main_.CWButton4.ValueChanged = [this] { CWButton4_ValueChanged(); };
  main_.Check5.Click = [this] { Check5_Click(); };
  main_.Check4.Click = [this] { Check4_Click(); };
  main_.Combo3.Click = [this] { Combo3_Click(); };
  for (std::size_t i = 0; i < main_.Label5.size(); ++i) {
    main_.Label5[i].Click = [this, i] { Label5_Click(i); };
  }
}

void ValuesView::ClearValues() {
  for (std::size_t i = 0; i < main_.Label5.size(); ++i) {
    main_.Label5[i].Caption = numbers_.Format(0, session_.UnitFormat);
    main_.Label12[i + FirstDcLabel].Caption = std::string();
  }
}

void ValuesView::CalculateValues() {
  for (std::size_t i = 0; i < main_.Label5.size(); ++i) {
    const auto [ac, dc] = platform::CWDSP::AcDcEstimate(array_.Column(block_.SignalValues, i));
    state_.RmsValues[i] = ac;
    main_.Label12[i + FirstDcLabel].Caption =
        settings_.ACDC ? "DC:" + numbers_.Format(dc, session_.UnitFormat) : std::string();
    main_.Label5[i].Caption = numbers_.Format(state_.RmsValues[i], session_.UnitFormat);
  }
}

void ValuesView::FillFormatList() {
  for (const char* format : Formats) main_.Combo3.AddItem(format);
  // Counting down never reaches the list from below.
  if (settings_.UnitResolution < 0) settings_.UnitResolution = 0;
  while (settings_.UnitResolution >= main_.Combo3.ListCount()) --settings_.UnitResolution;
  main_.Combo3.ListIndex = settings_.UnitResolution;
}

void ValuesView::ShowChannelNames() {
  // Writing a name field raises its change event, which asks for the names again.
  if (showingNames_) return;
  showingNames_ = true;
  for (std::size_t i = 0; i < main_.Label6.size(); ++i) {
    main_.Text1[i + forms::setup_field::FirstName].Text = settings_.ChannelName[i];
    const std::string unit = main_.Combo4[i < Currents ? 0 : 1].Text();
    main_.Label6[i].Caption = settings_.ChannelName[i] + " / [" + unit + "]";
    main_.Grid1.Cell[i + 1][0] = settings_.ChannelName[i];
  }
  showingNames_ = false;
}

void ValuesView::CWButton4_ValueChanged() {
  events_.Pump();
  if (!main_.CWButton4.Enabled) return;
  if (main_.CWButton4.Value) {
    BeginRun();
  } else {
    EndRun();
  }
}

void ValuesView::BeginRun() {
  ClearValues();
  state_.BlockCount = 0;
  state_.BlockCount2 = 0;
  main_.CWButton4.Enabled = false;
  main_.CWButton4.ToolTipText = forms::StopTip;
  state_.PacketLengthPending = true;
  capture_.SetupAdapter(packetroutines::LiveBuffer);
  capture_.StartCapture("LookingForValues");
}

void ValuesView::EndRun() {
  main_.CWButton4.ToolTipText = forms::RunValuesTip;
  main_.CWButton4.Enabled = false;
  main_.Timer3.Enabled = true;
  state_.LookingForValues = false;
  capture_.StopCapture();
}

void ValuesView::Check5_Click() {
  events_.Pump();
  ClearValues();
  if (main_.Check5.Value == 1) state_.RealTimeMode = true;
  if (main_.Check5.Value == 0) state_.RealTimeMode = false;
}

void ValuesView::Label5_Click(std::size_t channel) {
  state_.RealTimeChannel = static_cast<std::int16_t>(channel + 1);
  if (state_.RealTimeMode) ClearValues();
}

void ValuesView::Check4_Click() {
  settings_.ACDC = main_.Check4.Value != 0;
  file_.SaveSettings();
}

void ValuesView::Combo3_Click() {
  settings_.UnitResolution = platform::Narrow<std::int16_t>(main_.Combo3.ListIndex.Get());
  session_.UnitFormat = main_.Combo3.Text();
  file_.SaveSettings();
}

}  // namespace subroutines
