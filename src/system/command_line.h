#pragma once

#include <string>
#include <vector>

namespace host {

// What a program without a window is started with.

/// The words of the command line in UTF-8, the program's own name first.
std::vector<std::string> Words(int argc, const char* const* argv);

/// Readies the streams for texts in UTF-8. What is written where nobody reads any more is a failure
/// of that write, and not the end of the process.
void ReadyStreams();

/// What the user is told beside the results is read on a terminal.
bool NotesAreOnTerminal();

}  // namespace host
