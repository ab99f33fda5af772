#include "console/program/note_lines.h"

namespace console {

void NoteLines::Tell(const std::string& line) {
  if (line == told_) return;
  told_ = line;
  Clear();
  out_ << "vornik-cli: " << line << std::endl;
}

void NoteLines::ShowProgress(const std::string& line) {
  if (!terminal_) {
    out_ << line << std::endl;
    return;
  }
  Clear();
  out_ << line << std::flush;
  shown_ = line.size();
}

void NoteLines::Close() {
  if (shown_ > 0) out_ << std::endl;
  shown_ = 0;
}

void NoteLines::Clear() {
  if (shown_ > 0) out_ << '\r' << std::string(shown_, ' ') << '\r';
  shown_ = 0;
}

}  // namespace console
