#include "adapters/wire_filter.h"

#include <pcap/pcap.h>

#include <algorithm>

#include "adapters/vlan_term.h"

namespace adapters {

namespace {

constexpr int LongestFrame = 262144;
/// The two addresses in front of a tag or an ethertype.
constexpr std::size_t AddressBytes = 12;
constexpr std::size_t TagBytes = 4;
constexpr std::uint32_t LargestId = 0x0FFF;

std::uint32_t Word(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::uint32_t>(bytes[at]) << 8U | bytes[at + 1];
}

/// The tag types that the kernel takes off.
bool IsTagged(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < AddressBytes + TagBytes) return false;
  const std::uint32_t type = Word(bytes, AddressBytes);
  return type == 0x8100 || type == 0x88A8;
}

bool Passes(const FilterProgram& program, std::span<const std::uint8_t> bytes, std::size_t length) {
  pcap_pkthdr header{};
  header.caplen = static_cast<bpf_u_int32>(bytes.size());
  header.len = static_cast<bpf_u_int32>(length);
  return pcap_offline_filter(&program.Code(), &header, bytes.data()) != 0;
}

}  // namespace

WireFilter::WireFilter(const std::string& expression)
    : compiler_(pcap_open_dead(DLT_EN10MB, LongestFrame)) {
  const std::optional<VlanTerm> term = FindVlanTerm(expression);
  if (!term) {
    whereUntagged_.emplace(*compiler_, expression, expression, FilterProgram::Effort::Optimised);
    return;
  }
  testsTag_ = true;
  tagId_ = term->Id;
  if (tagId_ && *tagId_ > LargestId) {
    throw RefusedFilter(expression, "a VLAN has an identifier from 0 to 4095");
  }
  whereTagged_.emplace(*compiler_, term->WherePassed, expression, FilterProgram::Effort::Plain);
  whereUntagged_.emplace(*compiler_, term->WhereFailed, expression, FilterProgram::Effort::Plain);
}

bool WireFilter::Selects(std::span<const std::uint8_t> bytes, std::size_t length) {
  if (!IsTagged(bytes)) return Passes(*whereUntagged_, bytes, length);
  const std::uint32_t id = Word(bytes, AddressBytes + 2) & LargestId;
  untagged_.assign(bytes.begin(), bytes.begin() + AddressBytes);
  untagged_.insert(untagged_.end(), bytes.begin() + AddressBytes + TagBytes, bytes.end());
  const bool passed = testsTag_ && (!tagId_ || *tagId_ == id);
  return Passes(passed ? *whereTagged_ : *whereUntagged_, untagged_,
                std::max(length, bytes.size()) - TagBytes);
}

}  // namespace adapters
