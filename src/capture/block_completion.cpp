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
  return Run([&] { frameIndex_[0] = 0; }, [&] { ++state_.BlockCount; },
             [&] { services_.Events.Pump(); },
             [&] { return state_.LookingForScope ? BlockForScope(signalOk) : Flow::Next; },
             [&] {
               return state_.LookingForValues && !state_.RealTimeMode ? BlockForValues(signalOk)
                                                                      : Flow::Next;
             },
             [&] { return state_.LookingForRecording ? BlockForRecording() : Flow::Next; },
             [&] { return state_.LookingForPhases ? BlockForPhases(signalOk) : Flow::Next; });
}

Flow PacketDispatcher::BlockForScope(bool signalOk) {
  return Run([&] { capture_.StopCapture(); },
             [&] {
               if (signalOk)
                 consumers_.Views.PlotBlock(state_.BlockCount == 1 ? "Auto" : "Manuell");
             },
             [&] { services_.Events.Pump(); }, [&] { RestartSoon(); });
}

Flow PacketDispatcher::BlockForValues(bool signalOk) {
  return Run([&] { capture_.StopCapture(); },
             [&] {
               if (signalOk) consumers_.Views.CalculateValues();
             },
             [&] { services_.Events.Pump(); }, [&] { RestartSoon(); },
             [&] {
               // The check box may have been ticked in the pump.
               if (state_.RealTimeMode) consumers_.Views.ClearValues();
             });
}

Flow PacketDispatcher::BlockForRecording() {
  const std::int64_t product = std::int64_t{state_.BlockCount} * session_.BaseSamples;
  return Run([&] {
    const auto samples = platform::Narrow<std::int32_t>(product);
    main_.Label10[3].Caption = services_.Numbers.General(samples / DisplayRate) + "s / " +
                               platform::NumberText::General(samples) + " samples";
  });
}

Flow PacketDispatcher::BlockForPhases(bool signalOk) {
  return Run([&] { capture_.StopCapture(); },
             [&] {
               if (signalOk) consumers_.Views.UpdatePhases();
             },
             [&] { services_.Events.Pump(); }, [&] { RestartSoon(); });
}

void PacketDispatcher::RestartSoon() {
  main_.Timer2.Interval = BlockPause;
  main_.Timer2.Enabled = true;
}

}  // namespace packetroutines
