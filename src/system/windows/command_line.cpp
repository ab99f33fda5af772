#include "system/command_line.h"

#include <io.h>
#include <windows.h>

#include <cstdio>
#include <memory>

#include "system/places.h"

namespace host {

std::vector<std::string> Words(int, const char* const*) {
  // The words that a program is handed are in the code page of the system.
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(
      CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
  std::vector<std::string> texts;
  for (int i = 0; i < count; ++i) texts.push_back(Utf8(words.get()[i]));
  return texts;
}

void ReadyStreams() {
  SetConsoleOutputCP(CP_UTF8);
}

bool NotesAreOnTerminal() {
  return _isatty(_fileno(stderr)) != 0;
}

}  // namespace host
