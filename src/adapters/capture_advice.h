#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "adapters/interfaces/network_interface.h"

namespace adapters {

/// Tells the user what keeps the entries of the adapter list from capturing, and what to do.
/// It stays short: interfaces that want the same are named together, the rest gets a line each up
/// to a few. A wireless or virtual interface may be switched off for good reasons, so it is named
/// only where there is nothing else to choose, and the computer's own loop never.
class CaptureAdvice {
 public:
  void AddInterface(const NetworkInterface& found);
  /// `trouble` says what is wrong and what to do, in words that follow the file's name.
  void AddFile(const std::filesystem::path& file, const std::string& trouble);

  /// Empty where there is nothing to tell. `rightAdvice` ends it where the right is missing.
  std::string Text(const std::string& rightAdvice) const;

 private:
  std::string SwitchedOff() const;
  std::string Troubles() const;

  std::vector<std::string> withoutRight_;
  std::vector<std::string> portsOff_;
  std::vector<std::string> othersOff_;
  /// A line for each entry that cannot be used for a reason of its own.
  std::vector<std::string> troubles_;
  /// There is an interface to choose, or one that only the right is missing for.
  bool hasChoice_ = false;
};

}  // namespace adapters
