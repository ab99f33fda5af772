#pragma once

#include <cstddef>
#include <ostream>
#include <string>

namespace console {

/// What a user is told while a command runs: lines that stay, and below them one line that shows
/// how far it is and is written over.
class NoteLines {
 public:
  /// Only a terminal can write over a line.
  NoteLines(std::ostream& out, bool terminal) : out_(out), terminal_(terminal) {}
  NoteLines(const NoteLines&) = delete;
  NoteLines& operator=(const NoteLines&) = delete;
  ~NoteLines() { Close(); }

  /// A line that stays. What was told last is not told again.
  void Tell(const std::string& line);
  /// How far it is: at once on a terminal, else a line that stays.
  void ShowProgress(const std::string& line);
  /// The progress stays where it is.
  void Close();
  bool WritesOver() const { return terminal_; }

 private:
  /// Takes the progress from the terminal.
  void Clear();

  std::ostream& out_;
  const bool terminal_;
  std::string told_;
  std::size_t shown_ = 0;
};

}  // namespace console
