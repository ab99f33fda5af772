#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "adapters/interfaces/network_interface.h"

namespace adapters {

// How the places that frames come from are found and called, in the window's list and elsewhere.

inline constexpr const char* SimulatedTitle = "Simulated process bus (built in)";

/// What follows the title of an interface that cannot be used; empty where it can.
std::string WhyNot(Reach state);

/// The name ends as that of a capture file does.
bool IsCaptureFileName(const std::filesystem::path& file);
/// The capture files of a folder by name; none where there is no folder.
std::vector<std::filesystem::path> CaptureFiles(const std::filesystem::path& folder);
std::string FileTitle(const std::filesystem::path& file, bool playable);
/// Of a file that the list loses with the end of the program.
std::string TitleForThisRun(const std::filesystem::path& file);

}  // namespace adapters
