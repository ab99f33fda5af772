// What the packet event does with a complete block of the first stream.

#include "capture/packet_dispatcher.h"

namespace packetroutines {

using platform::Flow;

namespace {

/// Pause between a block of a live view and the restart of capture, in ms.
constexpr std::int32_t BlockPause = 100;
/// Samples a second of the recording's time display, whatever the base frequency is.
constexpr double DisplayRate = 4000;

}  // namespace

Flow PacketDispatcher::CompleteBlock(bool signalOk) {
  return Run(
      [&] { frameIndex_[0] = 0; }, [&] { ++state_.BlockCount; }, [&] { services_.Events.Pump(); },
      [&] {
        return state_.LookingForScope ? ShowBlock(signalOk, [&] { PlotBlock(); }) : Flow::Next;
      },
      [&] {
        return state_.LookingForValues && !state_.RealTimeMode ? BlockForValues(signalOk)
                                                               : Flow::Next;
      },
      [&] { return state_.LookingForRecording ? BlockForRecording() : Flow::Next; },
      [&] {
        return state_.LookingForPhases
                   ? ShowBlock(signalOk, [&] { consumers_.Views.UpdatePhases(); })
                   : Flow::Next;
      });
}

template <typename Show>
Flow PacketDispatcher::ShowBlock(bool signalOk, Show show) {
  return Run([&] { capture_.StopCapture(); },
             [&] {
               if (signalOk) show();
             },
             [&] { services_.Events.Pump(); },
             [&] {
               main_.Timer2.Interval = BlockPause;
               main_.Timer2.Enabled = true;
             });
}

void PacketDispatcher::PlotBlock() {
  consumers_.Views.PlotBlock(state_.BlockCount == 1 ? "Auto" : "Manuell");
}

Flow PacketDispatcher::BlockForValues(bool signalOk) {
  return Run([&] { return ShowBlock(signalOk, [&] { consumers_.Views.CalculateValues(); }); },
             [&] {
               // The check box may have been ticked in the pump.
               if (state_.RealTimeMode) consumers_.Views.ClearValues();
             });
}

Flow PacketDispatcher::BlockForRecording() {
  return Run([&] {
    const auto samples = static_cast<double>(state_.BlockCount) * session_.BaseSamples;
    main_.Label10[3].Caption = services_.Numbers.General(samples / DisplayRate) + "s / " +
                               services_.Numbers.General(samples) + " samples";
  });
}

}  // namespace packetroutines
