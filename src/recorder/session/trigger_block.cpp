#include "recorder/session/trigger_block.h"

namespace subroutines {

namespace kind = forms::trigger_kind;
namespace field = forms::trigger_field;
namespace caption = forms::side_caption;

namespace {

/// What is stored for a recording that starts at once, and for one that a trigger starts, whether
/// it triggers once or goes on.
constexpr std::int16_t Immediately = -1;
constexpr std::int16_t OnTrigger = 0;
/// The stored default, which says that triggers go on; a click never stores it.
constexpr std::int16_t OnEachTrigger = 1;

}  // namespace

TriggerBlock::TriggerBlock(forms::RecorderControls& recorder, forms::SharedControls& shared,
                           config::Settings& settings, const platform::NumberText& numbers)
    : recorder_(recorder), shared_(shared), settings_(settings), numbers_(numbers) {
  for (std::size_t i = 0; i < recorder_.Option1.size(); ++i) {
    recorder_.Option1[i].Click = [this, i] { Option1_Click(i); };
  }
}

void TriggerBlock::Load() {
  recorder_.Frame4.Visible = false;
  // The stored setting is selected later on; this first choice must not take its place.
  const std::int16_t stored = settings_.SingleTrigger;
  recorder_.Option1[kind::Immediate].Value = true;
  settings_.SingleTrigger = stored;
}

void TriggerBlock::ShowStored() {
  recorder_.Text3[field::Current].Text = numbers_.General(settings_.CurrentTriggerWave);
  recorder_.Text3[field::Voltage].Text = numbers_.General(settings_.VoltageTriggerWave);
  recorder_.Text3[field::Before].Text = numbers_.General(settings_.BeforeTriggerWaveTime);
  recorder_.Text3[field::After].Text = numbers_.General(settings_.AfterTriggerWaveTime);
  recorder_.Text3[field::Pause].Text = numbers_.General(settings_.TriggerPause);
}

void TriggerBlock::SelectStored() {
  switch (settings_.SingleTrigger) {
    case OnEachTrigger:
      recorder_.Option1[kind::Continuous].Value = true;
      break;
    case OnTrigger:
      recorder_.Option1[kind::Single].Value = true;
      break;
    case Immediately:
      recorder_.Option1[kind::Immediate].Value = true;
      break;
    default:
      break;
  }
}

void TriggerBlock::Option1_Click(std::size_t chosen) {
  const bool triggered = chosen != kind::Immediate;
  ShowFields(triggered);
  settings_.SingleTrigger = triggered ? OnTrigger : Immediately;
  recorder_.Text3[field::Pause].Enabled = chosen == kind::Continuous;
}

void TriggerBlock::ShowFields(bool visible) {
  recorder_.Shape9.Visible = visible;
  for (const std::size_t row : {caption::Voltage, caption::Current, caption::SampleDifference,
                                caption::OverflowValue, caption::Seconds, caption::TimeAround}) {
    shared_.Label3[row].Visible = visible;
  }
  for (const std::size_t each : {field::Current, field::Voltage, field::Before, field::After}) {
    recorder_.Text3[each].Visible = visible;
  }
}

}  // namespace subroutines
