#pragma once

#include "console/command.h"
#include "console/commands/listening.h"

namespace console {

/// Tells every stream of a bus: what it is by the structure of its frames, how fast it comes, and
/// what is missing in it.
class StreamsCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  ExitCode Run(const Machine& machine) override;

 private:
  Listening listening_;
  bool json_ = false;
};

}  // namespace console
