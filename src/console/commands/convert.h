#pragma once

#include <optional>
#include <string>
#include <vector>

#include "console/command.h"
#include "console/commands/recording_name.h"
#include "console/comtrade/conversion.h"

namespace console {

/// Makes a text recording into COMTRADE files that follow IEEE C37.111 to the letter.
class ConvertCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  ExitCode Run(const Machine& machine) override;

 private:
  Conversion Wish(const RecordingName& name, const Machine& machine) const;
  ComtradeForm Form() const;
  void TakeNames(Conversion& conversion) const;
  void TakeUnits(Conversion& conversion, const RecordingName& name) const;
  void TakeStart(ComtradeHead& head, const RecordingName& name, const Machine& machine) const;
  void Tell(const Converted& converted, const Machine& machine) const;

  std::string file_;
  std::string to_;
  bool binary_ = false;
  bool binary32_ = false;
  bool float_ = false;
  std::string station_;
  std::vector<std::string> channels_;
  std::vector<std::string> units_;
  std::string start_;
  std::string ahead_;
  std::optional<double> frequency_;
  std::optional<std::int32_t> round_;
  std::string folder_;
  bool force_ = false;
};

}  // namespace console
