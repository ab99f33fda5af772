// What the packet event does with a complete block of the first stream.

#include "capture/packet_dispatcher.h"
#include "platform/stream_format.h"

namespace packetroutines {

using platform::Flow;

namespace {

/// Pause between a block of a live view and the restart of capture, in ms.
constexpr std::int32_t BlockPause = 100;

}  // namespace

void PacketDispatcher::CompleteBlock(bool signalOk) {
  const std::uint32_t station = state_.StationChanges;
  const std::uint32_t tabChanges = state_.TabChanges;
  // A view that was chosen in one of the pumps, and runs already, has gathered nothing yet.
  const auto wants = [&](bool AcquisitionState::*mode) {
    return state_.*mode && state_.TabChanges == tabChanges;
  };
  const auto current = [&] { return signalOk && state_.StationChanges == station; };
  run_([&] { frameIndex_[0] = 0; }, [&] { builder_.KeepBlock(); },
       [&] { Advance(state_.BlockCount); }, [&] { services_.Events.Pump(); },
       [&] {
         if (wants(&AcquisitionState::LookingForScope)) ShowBlock(current, [&] { PlotBlock(); });
       },
       [&] {
         if (wants(&AcquisitionState::LookingForValues) && !state_.RealTimeMode) {
           BlockForValues(current);
         }
       },
       [&] {
         // The real-time value was shown frame by frame.
         if (wants(&AcquisitionState::LookingForValues) && state_.RealTimeMode) {
           consumers_.Views.BlockShown();
         }
       },
       [&] {
         if (wants(&AcquisitionState::LookingForRecording)) BlockForRecording();
       },
       [&] {
         if (wants(&AcquisitionState::LookingForPhases)) {
           ShowBlock(current, [&] { consumers_.Views.UpdatePhases(); });
         }
       });
}

template <typename Current, typename Show>
void PacketDispatcher::ShowBlock(Current current, Show show) {
  run_([&] { return capture_.StopCapture() ? Flow::Next : Flow::Leave; },
       [&] {
         if (!current()) return;
         show();
         consumers_.Views.BlockShown();
       },
       [&] { services_.Events.Pump(); },
       [&] {
         controls_.Timers.Timer2.Interval = BlockPause;
         controls_.Timers.Timer2.Enabled = true;
       });
}

void PacketDispatcher::PlotBlock() {
  consumers_.Views.PlotBlock(state_.BlockCount == 1 ? "Auto" : "Manuell");
}

template <typename Current>
void PacketDispatcher::BlockForValues(Current current) {
  run_([&] { ShowBlock(current, [&] { consumers_.Views.CalculateValues(); }); },
       [&] {
         // The check box may have been ticked in the pump.
         if (state_.RealTimeMode) consumers_.Views.ClearValues();
       });
}

void PacketDispatcher::BlockForRecording() {
  run_([&] {
    // The time display takes the usual rate, whatever the base frequency is.
    const auto samples = static_cast<double>(state_.BlockCount) * present_.BaseSamples;
    controls_.Recorder.Label10[forms::record_line::Progress].Caption =
        services_.Numbers.General(samples / platform::SamplesASecond) + "s / " +
        services_.Numbers.General(samples) + " samples";
    consumers_.Views.BlockShown();
  });
}

}  // namespace packetroutines
