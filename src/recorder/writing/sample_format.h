#pragma once

#include <cstddef>
#include <string_view>

#include "recorder/writing/writing_context.h"

namespace packetroutines {

/// What follows the stop of a recording.
enum class Sequel {
  Nothing,
  /// The file is read back for its log, and for the quick view on the page.
  LogAndQuickView,
  /// The file opens in the viewer of the user's desktop.
  Viewer
};

/// What is told of a format wherever nothing of it is written.
struct FormatFacts {
  /// As the store keeps it.
  std::string_view Name;
  std::string_view Extension;
  packetroutines::Sequel Sequel;
};

/// A file format of recordings: how a ring of samples becomes a piece of a file, and what its files
/// need at their begin and at their end.
class SampleFormat {
 public:
  SampleFormat(const FormatFacts& facts, const WritingContext& context)
      : Facts(facts), context_(context) {}
  SampleFormat(const SampleFormat&) = delete;
  SampleFormat& operator=(const SampleFormat&) = delete;
  virtual ~SampleFormat() = default;

  const FormatFacts Facts;

  /// A recording in this format begins; no file of it is there yet.
  virtual void Begin() {}
  /// Writes the ring of a stream, 0 or 1. The result tells whether it is stored whole; where it is
  /// not, the format has told why or has had the recording ended.
  virtual bool Write(std::size_t stream) = 0;
  /// The next recording counts from 0.
  virtual void Rewind() {}
  /// The recording was stopped.
  virtual void End() {}
  /// The recording ends with the program, and nobody can be told.
  virtual void EndForGood() { End(); }
  /// The file of a stream has no room for another whole ring.
  virtual bool Full(std::size_t /*stream*/) const { return false; }
  /// The recording goes on in other files: gives those at hand their end. The next ring of each
  /// stream begins its new one.
  virtual void EndPart() {}
  /// The recording was stopped because the file of a stream takes no more.
  virtual void EndAtLimit(std::size_t /*stream*/) {}
  /// The next recording begins, in whatever format: gives an end to what a change of the tab has
  /// left open.
  virtual void FinishLeftOpen() {}
  /// The program ends: the same, with nobody to tell.
  virtual void Finish() {}

 protected:
  const WritingContext context_;
};

}  // namespace packetroutines
