#pragma once

#include <cstdint>
#include <vector>

#include "sv/asdu.h"
#include "sv/frame_words.h"

namespace sv {

/// Adds what an ASDU holds, its number in the frame at the head, 1 for the first; nothing where
/// nothing was read of it.
void TellAsdu(const Asdu& asdu, std::uint32_t number, std::vector<WordLine>& lines);

}  // namespace sv
