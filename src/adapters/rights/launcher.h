#pragma once

#include <filesystem>

namespace adapters {

/// The variable by which the launcher tells a program who has started it.
inline constexpr const char* LaunchedMark = "VORNIK_LAUNCHED";

/// The file of the running program; empty where the system does not tell.
std::filesystem::path OwnProgram();

/// The launcher of the installation to which this program belongs; empty for a program that runs
/// from elsewhere, such as a folder where it was built. The file need not exist.
std::filesystem::path LauncherOf(const std::filesystem::path& program);

/// Starts the program anew through the launcher of its installation, which lends it the right to
/// capture, where the right is missing and the user may run the launcher. Returns where there is
/// nothing to gain, and behind a launcher that had nothing to lend. To be called before anything
/// else happens.
void StartThroughLauncher(int argc, const char* const* argv);

}  // namespace adapters
