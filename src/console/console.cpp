#include "console/console.h"

#include <CLI/CLI.hpp>
#include <array>
#include <exception>
#include <memory>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "config/program_facts.h"
#include "console/command.h"
#include "console/commands/adapters.h"
#include "console/commands/check.h"
#include "console/commands/convert.h"
#include "console/commands/record.h"
#include "console/commands/report.h"
#include "console/commands/streams.h"
#include "console/commands/values.h"
#include "console/commands/watch.h"

namespace console {

namespace {

std::vector<std::unique_ptr<Command>> AllCommands() {
  std::vector<std::unique_ptr<Command>> commands;
  commands.push_back(std::make_unique<AdaptersCommand>());
  commands.push_back(std::make_unique<StreamsCommand>());
  commands.push_back(std::make_unique<WatchCommand>());
  commands.push_back(std::make_unique<ReportCommand>());
  commands.push_back(std::make_unique<ValuesCommand>());
  commands.push_back(std::make_unique<RecordCommand>());
  commands.push_back(std::make_unique<CheckCommand>());
  commands.push_back(std::make_unique<ConvertCommand>());
  return commands;
}

ExitCode RunChosen(Command& command, const Machine& machine) {
  try {
    return command.Run(machine);
  } catch (const WrongUse& wrong) {
    machine.Notes << "vornik-cli: " << wrong.what() << std::endl;
    return ExitCode::WrongUse;
  } catch (const platform::Failure& failure) {
    machine.Notes << "vornik-cli: " << failure.Text() << std::endl;
    return CodeOf(failure);
  } catch (const std::exception& unexpected) {
    machine.Notes << "vornik-cli: " << unexpected.what() << std::endl;
    return ExitCode::FileTrouble;
  }
}

/// What a command has done is not done where its results were not taken. An alarm stays one, since
/// who waits for it goes by the code.
ExitCode WithResults(ExitCode code, const Machine& machine) {
  machine.Results.flush();
  if (machine.Results.good()) return code;
  machine.Notes << "vornik-cli: the results could not be written." << std::endl;
  return code == ExitCode::Done || code == ExitCode::NothingReceived ? ExitCode::FileTrouble : code;
}

}  // namespace

ExitCode Run(int argc, const char* const* argv, const Machine& machine) {
  CLI::App program(
      "Sampled values of IEC 61850-9-2 and IEC 61869-9 on a process bus, without a window",
      "vornik-cli");
  program.set_version_flag("--version", std::string("vornik-cli ") + config::ProgramVersion);
  program.require_subcommand(1);
  // A word that begins with a slash is a path on every system.
  program.allow_windows_style_options(false);
  program.footer(
      "Exit codes: 0 done, 1 nothing received, 2 wrong use, 3 not permitted, 4 disk or file "
      "trouble, "
      "5 an alarm.\nvornik-cli COMMAND --help tells of a command.");
  std::vector<std::pair<CLI::App*, std::unique_ptr<Command>>> declared;
  for (std::unique_ptr<Command>& command : AllCommands()) {
    CLI::App* const words = command->Declare(program);
    declared.emplace_back(words, std::move(command));
  }
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const int code = program.exit(error, machine.Results, machine.Notes);
    return WithResults(code == 0 ? ExitCode::Done : ExitCode::WrongUse, machine);
  }
  for (const auto& [words, command] : declared) {
    if (words->parsed()) return WithResults(RunChosen(*command, machine), machine);
  }
  return ExitCode::WrongUse;
}

}  // namespace console
