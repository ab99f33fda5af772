#pragma once

#include <cstdint>
#include <optional>

#include "console/command.h"
#include "console/commands/instrument_options.h"
#include "console/program/block_readings.h"

namespace console {

/// Measures a station block by block, as the Values and the Phasor page of the window do.
class ValuesCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  ExitCode Run(const Machine& machine) override;

 private:
  void Tell(const BlockReading& reading, const Machine& machine) const;
  bool Enough(std::chrono::nanoseconds time) const;

  InstrumentOptions options_;
  std::optional<std::int64_t> blocks_;
  std::int32_t interval_ = 500;
  bool json_ = false;
  std::int64_t told_ = 0;
};

}  // namespace console
