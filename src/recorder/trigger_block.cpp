#include "recorder/trigger_block.h"

namespace subroutines {

namespace kind = forms::trigger_kind;
namespace field = forms::trigger_field;
namespace caption = forms::side_caption;

namespace {

/// What is stored for a recording that starts at once, and for one that a trigger starts, whether
/// it triggers once or goes on.
constexpr std::int16_t Immediately = -1;
constexpr std::int16_t OnTrigger = 0;

}  // namespace

TriggerBlock::TriggerBlock(forms::RecorderControls& recorder, forms::SharedControls& shared,
                           config::Settings& settings)
    : recorder_(recorder), shared_(shared), settings_(settings) {
  for (std::size_t i = 0; i < recorder_.Option1.size(); ++i) {
    recorder_.Option1[i].Click = [this, i] { Option1_Click(i); };
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
