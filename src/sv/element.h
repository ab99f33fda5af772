#pragma once

#include <cstddef>
#include <cstdint>

#include "sv/fault.h"
#include "sv/octets.h"

namespace sv {

/// An element of the basic encoding rules (ITU-T X.690): a tag of one octet, a length of the short
/// or the long form, and what it holds.
struct Element {
  std::uint8_t Tag = 0;
  /// The place of its tag in the frame, from 0.
  std::size_t TagAt = 0;
  /// The place of what it holds, and the octets of that.
  std::size_t At = 0;
  std::size_t Size = 0;

  std::size_t End() const { return At + Size; }
  Octets Content(Octets frame) const { return frame.subspan(At, Size); }
};

/// Reads the element at `at`, which must end at `end` at the latest; `end` is within the frame. On
/// a fault the element tells how far it could be read.
inline Fault ReadElement(Octets frame, std::size_t at, std::size_t end, Element& element) {
  element = {};
  element.TagAt = at;
  if (end - at < 2 || at > end) return Fault::ElementCut;
  element.Tag = frame[at];
  if ((element.Tag & 0x1FU) == 0x1FU) return Fault::LongTag;
  std::size_t size = frame[at + 1];
  at += 2;
  if (size >= 0x80U) {
    // The long form: so many octets of a length follow. None of them means one without an end.
    const std::size_t octets = size & 0x7FU;
    if (octets == 0 || octets > sizeof(std::uint32_t) || octets > end - at)
      return Fault::ElementCut;
    size = Number(frame.subspan(at, octets));
    at += octets;
  }
  element.At = at;
  if (size > end - at) return Fault::ElementCut;
  element.Size = size;
  return Fault::None;
}

}  // namespace sv
