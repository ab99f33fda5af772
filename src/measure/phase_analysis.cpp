#include "measure/phase_analysis.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>

#include "base/failure.h"
#include "forms/run_tips.h"
#include "measure/angles.h"
#include "measure/full_scales.h"
#include "platform/stream_format.h"

namespace subroutines {

namespace channels = platform::channels;

namespace {

/// What stands for a cosine sum that is exactly 0.
constexpr double ReferenceSubstitute = 0.0000001;
constexpr double OtherSubstitute = 0.00000001;

constexpr platform::Rgb FrameColour{248, 251, 254};

void FillScales(platform::ComboBox& list, std::span<const std::int16_t> scales,
                std::int16_t selected) {
  for (const std::int16_t scale : scales) list.AddItem(platform::NumberText::General(scale));
  list.ListIndex = static_cast<std::int32_t>(std::ranges::find(scales, selected) - scales.begin());
}

/// Angle of a correlation in radians. An exact zero of the cosine sum counts as the angle 0 rather
/// than as a quarter turn, so that a silent channel has a defined angle.
double PhiOf(double sine, double cosine, double substitute) {
  double phi = 0;
  if (cosine == 0) {
    cosine = substitute;
  } else {
    phi = std::atan(sine / cosine);
  }
  return cosine < 0 ? phi + Pi : phi;
}

}  // namespace

PhaseAnalysis::PhaseAnalysis(forms::PhasorControls& phasor, forms::SharedControls& shared,
                             PhasorDiagram& diagram, packetroutines::RecordFields& record,
                             const ViewContext& context)
    : phasor_(phasor), shared_(shared), diagram_(diagram), record_(record), context_(context) {
  phasor_.CWButton2.ValueChanged = [this] { CWButton2_ValueChanged(); };
  phasor_.Check6.Click = [this] { Check6_Click(); };
}

void PhaseAnalysis::Load() {
  phasor_.Frame2.BackColor = FrameColour;
  phasor_.Frame3.BackColor = FrameColour;
  phasor_.CWButton2.BackColor = FrameColour;
  phasor_.Check6.Value = 1;
  diagram_.HeadTable();
  FillScales(phasor_.Combo5[forms::full_scale::Current], CurrentScales, 1000);
  FillScales(phasor_.Combo5[forms::full_scale::Voltage], VoltageScales, 400);
  for (platform::ComboBox& scale : phasor_.Combo5) scale.Enabled = false;
}

void PhaseAnalysis::Show(const platform::Routine& run) {
  record_.RecorderBusy = true;
  run([&] { phasor_.CWButton2.Value = false; },
      [&] {
        phasor_.Frame2.Visible = true;
        shared_.Picture1[forms::logo::Phasor].Visible = true;
        record_.RecorderBusy = false;
        phasor_.Label17.Visible = true;
        context_.Stations.Show(forms::station::Phasor);
      });
}

void PhaseAnalysis::Hide() {
  phasor_.Frame2.Visible = false;
  phasor_.Label17.Visible = false;
  context_.Stations.Hide(forms::station::Phasor);
  shared_.Picture1[forms::logo::Phasor].Visible = false;
}

void PhaseAnalysis::UpdatePhases() {
  diagram_.DrawPhasorGrid();
  float peakCurrent = 0;
  float peakVoltage = 0;
  const auto estimates = platform::CWDSP::AcDcEstimates(context_.Block.SignalValues);
  for (std::size_t i = 0; i < estimates.size(); ++i) {
    context_.Readings.RmsValues[i] = estimates[i].Ac;
    float& peak = channels::IsCurrent(i) ? peakCurrent : peakVoltage;
    if (static_cast<double>(peak) < context_.Readings.RmsValues[i]) {
      peak = static_cast<float>(context_.Readings.RmsValues[i]);
    }
  }
  PhaseShifts shifts;
  shifts.ShiftIA = PhaseShift(channels::VoltageA, channels::CurrentA);
  shifts.ShiftIB = PhaseShift(channels::VoltageB, channels::CurrentB);
  shifts.ShiftIC = PhaseShift(channels::VoltageC, channels::CurrentC);
  shifts.ShiftIN = PhaseShift(channels::VoltageN, channels::CurrentN);
  shifts.ShiftUB = PhaseShift(channels::VoltageA, channels::VoltageB);
  shifts.ShiftUC = PhaseShift(channels::VoltageA, channels::VoltageC);
  shifts.ShiftUN = PhaseShift(channels::VoltageA, channels::VoltageN);
  if (!autoRange_) {
    peakCurrent = context_.Numbers.ToSingle(phasor_.Combo5[forms::full_scale::Current].Text());
    peakVoltage = context_.Numbers.ToSingle(phasor_.Combo5[forms::full_scale::Voltage].Text());
  }
  diagram_.DrawPhasors(peakCurrent, peakVoltage, shifts);
}

double PhaseAnalysis::PhaseShift(std::size_t reference, std::size_t other) const {
  std::vector<double> sines;
  std::vector<double> cosines;
  BuildReference(sines, cosines);
  const double n = context_.Present.BaseSamples;
  double sinA = 0;
  double cosA = 0;
  double sinB = 0;
  double cosB = 0;
  for (std::int32_t i = 0; i < context_.Present.BaseSamples; ++i) {
    const auto row = context_.Block.SignalValues.Row(i);
    const auto k = static_cast<std::size_t>(i);
    sinA += sines[k] * row[reference] / n;
    cosA += cosines[k] * row[reference] / n;
    sinB += sines[k] * row[other] / n;
    cosB += cosines[k] * row[other] / n;
  }
  const double phiA = PhiOf(sinA, cosA, ReferenceSubstitute);
  const double phiB = PhiOf(sinB, cosB, OtherSubstitute);
  double degrees = (phiA - phiB) * -360 / TwoPi;
  if (degrees < -180) degrees += 360;
  if (degrees > 180) degrees -= 360;
  return degrees;
}

void PhaseAnalysis::BuildReference(std::vector<double>& sines, std::vector<double>& cosines) const {
  const double frequency = context_.Settings.BaseFrequency;
  if (frequency == 0) throw platform::Failure(platform::failure::DivisionByZero);
  const auto n = static_cast<std::size_t>(context_.Present.BaseSamples);
  sines.resize(n);
  cosines.resize(n);
  double t = 0;
  for (std::size_t i = 0; i < n; ++i) {
    // The reference turns once in the samples of a period, at any base frequency. Its first sample
    // stands one step into the period.
    t += 1 / (frequency * platform::SamplesAPeriod);
    sines[i] = std::sin(frequency * TwoPi * t);
    cosines[i] = std::cos(frequency * TwoPi * t);
  }
}

void PhaseAnalysis::CWButton2_ValueChanged() {
  const packetroutines::PageVisit visit(context_.State);
  context_.Events.Pump();
  // A view that is left by now keeps this button where it is, and must not start behind the other.
  if (!phasor_.CWButton2.Enabled || visit.Over()) return;
  if (phasor_.CWButton2.Value) {
    BeginRun();
  } else {
    EndRun();
  }
}

void PhaseAnalysis::BeginRun() {
  diagram_.DrawPhasorGrid();
  phasor_.CWButton2.Enabled = false;
  phasor_.Check6.Enabled = true;
  phasor_.CWButton2.ToolTipText = forms::StopTip;
  context_.Capture.BeginRun("LookingForPhases");
}

void PhaseAnalysis::EndRun() {
  phasor_.CWButton2.ToolTipText = forms::RunPhasesTip;
  phasor_.CWButton2.Enabled = false;
  EnableScales();
  context_.Run.ReleaseButtons();
  context_.Capture.EndRun("LookingForPhases");
}

void PhaseAnalysis::Check6_Click() {
  autoRange_ = phasor_.Check6.Value != 0;
  context_.Events.Pump();
  EnableScales();
}

void PhaseAnalysis::EnableScales() {
  for (platform::ComboBox& scale : phasor_.Combo5) scale.Enabled = !autoRange_;
}

}  // namespace subroutines
