#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace soak {

/// A number of this process that the system tells under this name.
inline long OwnNumber(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != name + ":") continue;
    long number = 0;
    status >> number;
    return number;
  }
  return 0;
}

/// Resident memory of this process, in kB.
inline long ResidentKb() {
  return OwnNumber("VmRSS");
}

inline long Threads() {
  return OwnNumber("Threads");
}

/// Files and sockets that are open, the listing itself included.
inline long Handles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
}

}  // namespace soak
