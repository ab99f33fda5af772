#pragma once

#include <CLI/CLI.hpp>

#include "console/exit_code.h"
#include "console/machine.h"

namespace console {

/// One thing that the program does, chosen by the first word of its command line.
class Command {
 public:
  Command() = default;
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;
  virtual ~Command() = default;

  /// Adds the command with its options, and with an example at the end of its help; what the
  /// options say is there before it runs.
  virtual CLI::App* Declare(CLI::App& program) = 0;
  /// A failure that leaves is told in a line, and its number gives the exit code.
  virtual ExitCode Run(const Machine& machine) = 0;
};

/// A command line that the options alone cannot refuse.
class WrongUse : public std::exception {
 public:
  explicit WrongUse(std::string text) : text_(std::move(text)) {}
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

}  // namespace console
