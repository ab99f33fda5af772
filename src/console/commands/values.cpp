#include "console/commands/values.h"

#include <limits>
#include <nlohmann/json.hpp>

#include "console/iso_time.h"
#include "console/table.h"

namespace console {

namespace {

using Json = nlohmann::ordered_json;

/// The patterns of the list of formats with four decimals, with groups of digits and without.
constexpr std::int16_t InGroups = 0;
constexpr std::int16_t PlainDigits = 5;

void WriteTable(const BlockReading& reading, const Machine& machine) {
  Table table({{"CHANNEL"},
               {"unit"},
               {"RMS", Table::Side::Right},
               {"DC", Table::Side::Right},
               {"magnitude", Table::Side::Right},
               {"angle", Table::Side::Right}});
  for (const BlockReading::Channel& each : reading.Channels) {
    table.Add({each.Name, each.Unit, each.Rms, each.Dc, each.Magnitude, each.Angle});
  }
  machine.Results << IsoTime(reading.At) << '\n';
  table.Write(machine.Results);
  machine.Results << std::endl;
}

void WriteJson(const BlockReading& reading, const std::string& station, const Machine& machine) {
  Json channels = Json::array();
  const auto number = [&](const std::string& text) { return machine.Numbers.ToDouble(text); };
  for (const BlockReading::Channel& each : reading.Channels) {
    channels.push_back({{"name", each.Name},
                        {"unit", each.Unit},
                        {"rms", number(each.Rms)},
                        {"dc", number(each.Dc)},
                        {"magnitude", number(each.Magnitude)},
                        {"angle", number(each.Angle)}});
  }
  const Json line{{"time", IsoTime(reading.At)}, {"svID", station}, {"channels", channels}};
  machine.Results << line.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
}

}  // namespace

CLI::App* ValuesCommand::Declare(CLI::App& program) {
  CLI::App* const words = program.add_subcommand(
      "values", "Measure the eight channels of a station: RMS, DC, magnitude and angle");
  options_.Declare(*words, 1, "measure for so long; until Ctrl+C unless told");
  words->add_option("--blocks", blocks_, "end behind so many blocks")
      ->check(CLI::Range(1, std::numeric_limits<std::int32_t>::max()));
  words->add_option("--interval", interval_, "between two blocks, in ms; 500 unless told")
      ->check(CLI::Range(0, std::int32_t{std::numeric_limits<std::int16_t>::max()}));
  words->add_flag("--json", json_, "a line of JSON a block");
  words->footer("Example: vornik-cli values eth0 --station MU01 --blocks 1");
  return words;
}

void ValuesCommand::Tell(const BlockReading& reading, const Machine& machine) const {
  if (json_) {
    WriteJson(reading, options_.ToSetup().Stations.front(), machine);
  } else {
    WriteTable(reading, machine);
  }
}

bool ValuesCommand::Enough(std::chrono::nanoseconds time) const {
  return (blocks_ && told_ >= *blocks_) ||
         (options_.Seconds && time >= std::chrono::duration<double>(*options_.Seconds));
}

ExitCode ValuesCommand::Run(const Machine& machine) {
  Setup setup = options_.ToSetup();
  setup.Tab = forms::tab::Values;
  setup.Interval = interval_;
  setup.Resolution = json_ ? PlainDigits : InGroups;
  NoteLines notes(machine.Notes, machine.OnTerminal);
  Instrument instrument(machine, setup, notes);
  const std::chrono::nanoseconds begun = instrument.Time().Now();
  const auto lasts = [&] { return instrument.Time().Now() - begun; };
  BlockReadings readings(instrument.Program(), [&](const BlockReading& reading) {
    if (Enough(lasts())) return;
    ++told_;
    Tell(reading, machine);
  });
  forms::Main& main = instrument.Program().Windows.Main;
  TellWhatIsSaid(main.QuietLine[forms::quiet_line::Values], notes, instrument.Time(),
                 [] { return false; });
  instrument.Do([&] { main.CWButton4.Value = true; });
  // Without data the run has ended, and its line has told so.
  instrument.RunUntil([&] {
    return Enough(lasts()) || instrument.Boxes().NoDataTold() || !machine.Results.good();
  });
  if (const std::string trouble = instrument.Capture().Trouble(); !trouble.empty()) {
    notes.Tell(trouble);
    return ExitCode::FileTrouble;
  }
  if (instrument.Failed()) return ExitCode::FileTrouble;
  return told_ > 0 ? ExitCode::Done : ExitCode::NothingReceived;
}

}  // namespace console
