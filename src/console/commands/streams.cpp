#include "console/commands/streams.h"

#include "console/bus/bus_streams.h"
#include "console/bus/stream_json.h"
#include "console/bus/stream_table.h"
#include "sv/fault.h"

namespace console {

namespace {

constexpr double UsualSeconds = 5;

void WriteJson(const BusStreams& bus, const Machine& machine) {
  Json streams = Json::array();
  for (const auto& stream : bus.Streams()) streams.push_back(ToJson(*stream, machine.Code));
  const Json all{{"frames", bus.Frames()},
                 {"framesWithFaults", bus.Faulty()},
                 {"framesOfFurtherStreams", bus.NotFollowed()},
                 {"streams", streams}};
  machine.Results << all.dump(2) << '\n';
}

}  // namespace

CLI::App* StreamsCommand::Declare(CLI::App& program) {
  CLI::App* const words =
      program.add_subcommand("streams", "Tell every stream on a bus, and what is missing in it");
  listening_.Declare(*words,
                     "listen for so long; 5 unless told, a capture file is read to its end");
  words->add_flag("--json", json_, "one JSON object with an array 'streams'");
  words->footer("Example: vornik-cli streams eth0 --seconds 10");
  return words;
}

ExitCode StreamsCommand::Run(const Machine& machine) {
  listening_.Begin(machine);
  if (!listening_.Seconds && !listening_.Tap().Ends()) listening_.Seconds = UsualSeconds;
  BusStreams bus;
  listening_.ClockSet = [&](BusStreams::Time step) { bus.SetClock(step); };
  listening_.Go([&](const platform::CapturedFrame& frame) { bus.Take(frame); });
  bus.End();
  if (json_) {
    WriteJson(bus, machine);
  } else if (!bus.Streams().empty()) {
    WriteTables(bus, machine.Code, machine.Results);
  }
  if (bus.Faulty() > 0) {
    machine.Notes << "vornik-cli: the structure of " << bus.Faulty() << " of " << bus.Frames()
                  << " frames is not whole; of the latest: " << sv::Words(bus.LatestFault()) << "."
                  << std::endl;
  }
  if (bus.NotFollowed() > 0) {
    machine.Notes << "vornik-cli: " << bus.NotFollowed()
                  << " frames are of streams beyond the first " << BusStreams::MostStreams
                  << ", which are not told of." << std::endl;
  }
  listening_.TellTrouble();
  if (!listening_.Tap().Trouble().empty()) return ExitCode::FileTrouble;
  if (!bus.Streams().empty()) return ExitCode::Done;
  machine.Notes << "vornik-cli: no stream of sampled values came from " << listening_.Name() << "."
                << std::endl;
  return ExitCode::NothingReceived;
}

}  // namespace console
