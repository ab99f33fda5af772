#include "console/commands/record.h"

#include <array>
#include <map>
#include <utility>

#include "base/failure.h"
#include "console/commands/bus_recording.h"
#include "console/program/recording.h"
#include "recorder/writing/comtrade_format.h"
#include "recorder/writing/text_format.h"
#include "recorder/writing/worksheet_format.h"

namespace console {

namespace {

/// The format that the whole program has not.
constexpr const char* FromTheBus = "cff";
/// The formats by the names that a user gives them.
const std::map<std::string, std::string> Formats = {
    {"text", std::string(packetroutines::TextFacts.Name)},
    {"worksheet", std::string(packetroutines::WorksheetFacts.Name)},
    {"comtrade", std::string(packetroutines::ComtradeFacts.Name)},
    {FromTheBus, ""}};

constexpr std::size_t MostStations = 64;
constexpr std::size_t MostOfTheProgram = 2;
/// Seconds of the units in which a user gives the time of a file.
const std::map<std::string, double> Units = {{"s", 1}, {"m", 60}, {"h", 3600}};
/// A ring takes up to a second, and a name tells no less.
constexpr double ShortestFile = 2;

}  // namespace

CLI::App* RecordCommand::Declare(CLI::App& program) {
  CLI::App* const words = words_ =
      program.add_subcommand("record", "Record every sample of one or two stations to files");
  options_.Declare(*words, MostStations, "record for so long; until Ctrl+C unless told");
  words->add_option("--format", format_, "text, worksheet, comtrade or cff; text unless told")
      ->check(CLI::IsMember(Formats));
  words->add_option("--folder", folder_, "where the files go; it must be there")->required();
  words
      ->add_option("--every", every_,
                   "begin a new file whenever one holds so long, such as 1h, 30m or 10s; no sample "
                   "is lost between")
      ->transform(CLI::AsNumberWithUnit(Units))
      ->check(CLI::Range(ShortestFile, 1e9));
  words->footer(
      "Ctrl+C ends the recording with all its files, a second one at once. The names of the files "
      "are the results.\n"
      "Example: vornik-cli record eth0 --station MU01 --folder /data --every 1h");
  return words;
}

std::string RecordCommand::Folder(const Machine& machine) const {
  const std::string separator = machine.Files.Separator();
  std::string folder = folder_;
  while (folder.size() > 1 && folder.ends_with(separator)) folder.pop_back();
  if (!machine.Files.DirectoryExists(folder)) {
    throw platform::Failure(
        platform::failure::PathNotFound,
        "The folder " + folder + " is not there. Make it, or name another one.");
  }
  return folder;
}

ExitCode RecordCommand::RecordBus(const Machine& machine, const Setup& setup) const {
  for (const char* option : {"--filter", "--samplings", "--current", "--voltage"}) {
    if (words_->count(option) == 0) continue;
    throw WrongUse(std::string(option) +
                   " is not for --format cff, which records every number as it is on the wire; "
                   "leave it out");
  }
  std::optional<double> frequency;
  if (words_->count("--frequency") > 0) frequency = std::stod(setup.Frequency);
  return BusRecording(machine, setup, std::chrono::duration<double>(every_), frequency)
      .Run(options_.Seconds);
}

ExitCode RecordCommand::Run(const Machine& machine) {
  Setup setup = options_.ToSetup();
  setup.Tab = forms::tab::Recorder;
  setup.Folder = Folder(machine);
  if (format_ != FromTheBus && setup.Stations.size() > MostOfTheProgram) {
    throw WrongUse("two stations can be recorded at once, or more of them with --format cff");
  }
  if (format_ == FromTheBus) {
    return RecordBus(machine, setup);
  }
  setup.Format = Formats.at(format_);
  NoteLines notes(machine.Notes, machine.OnTerminal);
  Instrument instrument(machine, setup, notes);
  Recording recording(instrument, notes, machine.Results);
  recording.Begin(
      std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::duration<double>(every_)));
  instrument.RunUntil([&] {
    recording.Look();
    const bool timeIsOver =
        options_.Seconds && recording.Lasts() >= std::chrono::duration<double>(*options_.Seconds);
    return recording.Over() || timeIsOver;
  });
  recording.End();
  if (const std::string trouble = instrument.Capture().Trouble(); !trouble.empty()) {
    notes.Tell(trouble);
    return ExitCode::FileTrouble;
  }
  return recording.Outcome();
}

}  // namespace console
