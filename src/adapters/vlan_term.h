#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace adapters {

/// The first test for a VLAN tag in a filter expression, and the expression with that test
/// replaced.
struct VlanTerm {
  /// The identifier asked for; absent where any tag will do.
  std::optional<std::uint32_t> Id;
  /// The expressions for a frame that passes the test and for one that does not.
  std::string WherePassed;
  std::string WhereFailed;
};

/// Finds the first `vlan` or `vlan N` of an expression; absent where there is none.
std::optional<VlanTerm> FindVlanTerm(std::string_view expression);

}  // namespace adapters
