#pragma once

#include <string>

#include "console/command.h"
#include "console/commands/instrument_options.h"

namespace console {

/// Records one station or two to files, as the Recorder page of the window does.
class RecordCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  ExitCode Run(const Machine& machine) override;

 private:
  /// The folder as it is written on; fails where it is not there.
  std::string Folder(const Machine& machine) const;

  /// Straight from the bus, as the whole program cannot.
  ExitCode RecordBus(const Machine& machine, const Setup& setup) const;

  /// What the user has given.
  CLI::App* words_ = nullptr;
  InstrumentOptions options_;
  std::string format_ = "text";
  std::string folder_;
  double every_ = 0;
};

}  // namespace console
