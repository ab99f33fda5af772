#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "console/program/instrument.h"

namespace console {

/// The options that the commands of the whole program share: where it listens, to whom and for how
/// long, and how it measures.
class InstrumentOptions {
 public:
  void Declare(CLI::App& command, std::size_t mostStations, const std::string& secondsHelp);
  /// What they ask for, as far as it is theirs to say.
  Setup ToSetup() const;

  std::optional<double> Seconds;

 private:
  std::string adapter_;
  bool fast_ = false;
  std::vector<std::string> stations_;
  std::string filter_;
  std::string frequency_ = "50";
  std::int32_t samplings_ = 400;
  std::string current_ = "A";
  std::string voltage_ = "kV";
};

}  // namespace console
