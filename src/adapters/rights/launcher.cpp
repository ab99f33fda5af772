#include "adapters/rights/launcher.h"

#include <cstdlib>
#include <string>
#include <system_error>
#include <vector>

#include "adapters/rights/capture_right.h"

#ifdef __linux__
#include <unistd.h>
#endif

namespace adapters {

#ifdef __linux__

std::filesystem::path OwnProgram() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error);
}

std::filesystem::path LauncherOf(const std::filesystem::path& program) {
  const bool installed = program == std::filesystem::path(VORNIK_PROGRAMS) / program.filename();
  return installed ? VORNIK_LAUNCHER : std::filesystem::path();
}

void StartThroughLauncher(int argc, const char* const* argv) {
  if (std::getenv(LaunchedMark) != nullptr) {
    // A program that this one starts, or is handed a shell by, may itself want to be launched.
    unsetenv(LaunchedMark);
    return;
  }
  if (HasCaptureRight()) return;
  const std::filesystem::path program = OwnProgram();
  const std::filesystem::path launcher = LauncherOf(program);
  if (launcher.empty() || access(launcher.c_str(), X_OK) != 0) return;
  const std::string name = program.filename().string();
  std::vector<char*> words{const_cast<char*>(launcher.c_str()), const_cast<char*>(name.c_str())};
  for (int i = 1; i < argc; ++i) words.push_back(const_cast<char*>(argv[i]));
  words.push_back(nullptr);
  // Where this fails the program goes on as it is.
  execv(launcher.c_str(), words.data());
}

#else

std::filesystem::path OwnProgram() {
  return {};
}

std::filesystem::path LauncherOf(const std::filesystem::path&) {
  return {};
}

void StartThroughLauncher(int, const char* const*) {}

#endif

}  // namespace adapters
