#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "console/command.h"

namespace console {

/// Looks through text recordings, of either stream and any rate, for samples that are missing: the
/// lines of a log for each, and a line for each gap.
class CheckCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  ExitCode Run(const Machine& machine) override;

 private:
  std::vector<std::string> files_;
  std::optional<std::int32_t> round_;
  bool log_ = false;
  bool json_ = false;
};

}  // namespace console
