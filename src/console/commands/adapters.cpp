#include "console/commands/adapters.h"

#include <nlohmann/json.hpp>

#include "console/table.h"

namespace console {

CLI::App* AdaptersCommand::Declare(CLI::App& program) {
  CLI::App* const words =
      program.add_subcommand("adapters", "List what can be captured from, and why the rest cannot");
  words->add_flag("--json", json_, "one JSON object with an array 'adapters'");
  words->footer("Example: vornik-cli adapters");
  return words;
}

ExitCode AdaptersCommand::Run(const Machine& machine) {
  const std::vector<platform::CapturePlace> places = machine.Taps.Places();
  if (json_) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const platform::CapturePlace& place : places) {
      list.push_back({{"name", place.Name}, {"title", place.Title}, {"usable", place.Usable}});
    }
    machine.Results << nlohmann::ordered_json{{"adapters", list}}.dump(2) << '\n';
  } else {
    Table table({{"ADAPTER"}, {"can be used"}, {"what it is"}});
    for (const platform::CapturePlace& place : places) {
      table.Add({place.Name, place.Usable ? "yes" : "no", place.Title});
    }
    table.Write(machine.Results);
  }
  const std::string advice = machine.Taps.Advice();
  if (!advice.empty()) machine.Notes << advice << std::endl;
  return ExitCode::Done;
}

}  // namespace console
