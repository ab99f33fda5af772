// Lends the right to capture to the two programs of the installation, and to nothing else. The file
// bears the capability and may be run by a group; the programs themselves bear none.

#include <sys/capability.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/rights/launcher.h"

namespace {

constexpr std::string_view Window = "vornik";
constexpr std::string_view Console = "vornik-cli";
constexpr int Refused = 126;

/// What passes on to the programs. A variable may name code that a library of theirs loads, and
/// nobody knows all of those, so only what a session, a locale, a printer and the user's own
/// viewers need is let through. The loader has taken away its own variables before this program
/// began.
constexpr std::array<std::string_view, 47> Passed{"AT_SPI_BUS_ADDRESS",
                                                  "BROWSER",
                                                  "COLORTERM",
                                                  "COLUMNS",
                                                  "CUPS_SERVER",
                                                  "DBUS_SESSION_BUS_ADDRESS",
                                                  "DESKTOP_SESSION",
                                                  "DESKTOP_STARTUP_ID",
                                                  "DISPLAY",
                                                  "GDMSESSION",
                                                  "GNOME_DESKTOP_SESSION_ID",
                                                  "HOME",
                                                  "ICEAUTHORITY",
                                                  "KDE_FULL_SESSION",
                                                  "KDE_SESSION_UID",
                                                  "KDE_SESSION_VERSION",
                                                  "LANG",
                                                  "LANGUAGE",
                                                  "LOGNAME",
                                                  "LPDEST",
                                                  "MAIL",
                                                  "MAILER",
                                                  "NO_COLOR",
                                                  "PATH",
                                                  "PRINTER",
                                                  "PWD",
                                                  "QT_ACCESSIBILITY",
                                                  "QT_AUTO_SCREEN_SCALE_FACTOR",
                                                  "QT_ENABLE_HIGHDPI_SCALING",
                                                  "QT_FONT_DPI",
                                                  "QT_IM_MODULE",
                                                  "QT_LINUX_ACCESSIBILITY_ALWAYS_ON",
                                                  "QT_QPA_PLATFORM",
                                                  "QT_SCALE_FACTOR",
                                                  "QT_SCALE_FACTOR_ROUNDING_POLICY",
                                                  "QT_SCREEN_SCALE_FACTORS",
                                                  "SESSION_MANAGER",
                                                  "SHELL",
                                                  "TERM",
                                                  "TZ",
                                                  "USER",
                                                  "WAYLAND_DISPLAY",
                                                  "WAYLAND_SOCKET",
                                                  "WINDOWID",
                                                  "XAUTHORITY",
                                                  "XCURSOR_SIZE",
                                                  "XMODIFIERS"};

bool Passes(std::string_view variable) {
  const std::string_view name = variable.substr(0, variable.find('='));
  return name.starts_with("LC_") || name.starts_with("XDG_") ||
         std::find(Passed.begin(), Passed.end(), name) != Passed.end();
}

std::vector<std::string> Environment() {
  std::vector<std::string> kept;
  for (char** each = environ; *each != nullptr; ++each) {
    if (Passes(*each)) kept.emplace_back(*each);
  }
  kept.push_back(std::string(adapters::LaunchedMark) + "=1");
  return kept;
}

/// The arguments of the window's program are the toolkit's own, and load code too.
std::vector<std::string> Words(int argc, char** argv) {
  const bool takesArguments = argv[1] == Console;
  return takesArguments ? std::vector<std::string>(argv + 1, argv + argc)
                        : std::vector<std::string>{argv[1]};
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

/// Without the right, in a container say, the program runs all the same and tells so itself.
void LendTheRight() {
  const cap_value_t raw = CAP_NET_RAW;
  cap_t sets = cap_get_proc();
  cap_set_flag(sets, CAP_INHERITABLE, 1, &raw, CAP_SET);
  if (cap_set_proc(sets) == 0) cap_set_ambient(raw, CAP_SET);
  cap_free(sets);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || (argv[1] != Window && argv[1] != Console)) {
    std::fputs("vornik-capture is started by vornik and vornik-cli, not by hand.\n", stderr);
    return Refused;
  }
  const std::string program = std::string(VORNIK_PROGRAMS "/") + argv[1];
  std::vector<std::string> words = Words(argc, argv);
  std::vector<std::string> environment = Environment();
  LendTheRight();
  execve(program.c_str(), Pointers(words).data(), Pointers(environment).data());
  std::perror(program.c_str());
  return Refused;
}
