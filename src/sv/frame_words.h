#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "sv/frame.h"
#include "sv/octets.h"

namespace sv {

/// One line of what is told of a frame. A title without a value heads the lines behind it.
struct WordLine {
  std::string Title;
  std::string Value;
  /// The value is the sender's own octets, whatever code page they are in.
  bool Raw = false;
};

/// The value of the first line where the structure is whole.
inline constexpr const char* WholeStructure = "whole";

/// What a frame holds by its structure, field by field, ASDU by ASDU. The first line tells whether
/// the structure is whole, or where it ends and why; what was read until then is told. A field that
/// the sender left out has no line.
std::vector<WordLine> FrameWords(const Frame& frame);

/// All bytes in hexadecimal digits, sixteen a line, with their offset in front and the characters
/// of the plain English alphabet behind.
std::vector<std::string> DumpWords(Octets bytes);

/// A place in a frame, as the dump writes its offsets.
std::string PlaceWords(std::size_t at);

/// A quality word: its validity, and the details that are set.
std::string QualityWords(std::uint32_t word);
std::string SynchWords(std::uint8_t smpSynch);

}  // namespace sv
