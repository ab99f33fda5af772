#include "system/command_line.h"

#include <signal.h>
#include <unistd.h>

namespace host {

std::vector<std::string> Words(int argc, const char* const* argv) {
  return {argv, argv + argc};
}

void ReadyStreams() {
  ::signal(SIGPIPE, SIG_IGN);
}

bool NotesAreOnTerminal() {
  return ::isatty(STDERR_FILENO) != 0;
}

}  // namespace host
