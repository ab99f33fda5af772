#pragma once

#include <filesystem>
#include <string>

namespace adapters {

/// How the user of a program that lacks the right to capture gets it.
struct WayToRight {
  enum class By {
    /// The program was built here: its file is given the right.
    ProgramFile,
    /// It was installed: the user joins the group of those who may.
    Group,
    /// The user has joined, but the session began before that.
    NewLogin,
    /// The user may, but the launcher's file has lost what it lends.
    LauncherFile,
  };

  By What = By::ProgramFile;
  /// The file that lends the right, or the program's own; empty where it is not known.
  std::filesystem::path File = {};
  std::string User = {};
  std::string Group = {};
};

/// The way of this program and this user on this computer.
WayToRight FindWayToRight();

/// Tells the user what to do; whole lines, the commands among them.
std::string AdviceOn(const WayToRight& way);

}  // namespace adapters
