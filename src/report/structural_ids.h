#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "sv/fault.h"
#include "sv/octets.h"

namespace packetroutines {

/// The station IDs that a frame tells by its structure, where a search may be misled: the different
/// ones of its ASDUs that can be read, in their order and in the sender's own octets, which are
/// looked at in the frame.
struct StructuralIds {
  StructuralIds(sv::Octets bytes, std::size_t length);

  std::vector<std::string_view> Ids;
  /// Why the frame cannot be read to its end.
  sv::Fault Why = sv::Fault::None;
};

}  // namespace packetroutines
