#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "adapters/pcap_handle.h"

namespace adapters {

/// A filter that selects stored or computed frames as a live interface would select them.
/// On the wire the kernel takes the outer VLAN tag off before the filter looks at the frame and
/// keeps the tag beside it; so this filter shows its program the frame without that tag.
class WireFilter {
 public:
  /// `failure::FilterRefused` where the expression is refused.
  explicit WireFilter(const std::string& expression);

  /// `length` is the true length of the frame, of which `bytes` may hold less.
  bool Selects(std::span<const std::uint8_t> bytes, std::size_t length);

 private:
  PcapHandle compiler_;
  /// Set where the expression tests for a tag: any tag, or the one of this identifier.
  bool testsTag_ = false;
  std::optional<std::uint32_t> tagId_;
  std::optional<FilterProgram> whereTagged_;
  std::optional<FilterProgram> whereUntagged_;
  /// The frame without its tag, kept for the frames to come.
  std::vector<std::uint8_t> untagged_;
};

}  // namespace adapters
