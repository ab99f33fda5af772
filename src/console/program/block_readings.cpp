#include "console/program/block_readings.h"

#include <string_view>
#include <utility>

namespace console {

namespace {

constexpr std::string_view DcCaption = "DC:";

}  // namespace

BlockReadings::BlockReadings(formroutines::Application& program, Take take)
    : program_(program), take_(std::move(take)) {
  program_.Acquisition.Upper.Views = static_cast<packetroutines::BlockConsumers&>(*this);
  // A value that fits no automatic scale of the diagram would keep the angles of all from the
  // table.
  program_.Windows.Main.Check6.Value = 0;
}

void BlockReadings::CalculateValues() {
  program_.LiveViews.Values.CalculateValues();
  program_.LiveViews.Phases.UpdatePhases();
  take_(Read());
}

BlockReading BlockReadings::Read() const {
  const forms::Main& main = program_.Windows.Main;
  BlockReading reading;
  reading.At = program_.Acquisition.Watch.LastArrived(0);
  for (std::size_t i = 0; i < reading.Channels.size(); ++i) {
    const std::size_t list =
        platform::channels::IsCurrent(i) ? forms::unit_list::Current : forms::unit_list::Voltage;
    const auto& row = main.Grid1.Cell[i + 1];
    const std::string& dc = main.Label12[i + forms::small_label::FirstDc].Caption;
    reading.Channels[i] = {.Name = program_.Config.Settings.ChannelName[i],
                           .Unit = main.Combo4[list].Text(),
                           .Rms = main.Label5[i].Caption,
                           .Dc = dc.substr(DcCaption.size()),
                           .Magnitude = row[1],
                           .Angle = row[2]};
  }
  return reading;
}

}  // namespace console
