#pragma once

#include <set>
#include <string>

#include "console/command.h"
#include "console/commands/listening.h"

namespace console {

/// Tells the next frame of each stream by its structure, in words, with a dump of its bytes.
class ReportCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  ExitCode Run(const Machine& machine) override;

 private:
  void Report(const platform::CapturedFrame& captured, const Machine& machine);

  Listening listening_;
  bool json_ = false;
  /// Whose frame was told.
  std::set<std::string> met_;
};

}  // namespace console
