#pragma once

#include "console/command.h"

namespace console {

/// Lists what can be captured from, and why the rest cannot.
class AdaptersCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  ExitCode Run(const Machine& machine) override;

 private:
  bool json_ = false;
};

}  // namespace console
