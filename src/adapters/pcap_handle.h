#pragma once

#include <memory>
#include <string>

#include "base/failure.h"

// The capture library's types, named here so that its header stays out of ours.
struct pcap;
struct bpf_program;

namespace adapters {

struct PcapCloser {
  void operator()(pcap* handle) const;
};

/// An open capture or capture file.
using PcapHandle = std::unique_ptr<pcap, PcapCloser>;

/// The failure that tells the user which filter was refused and why.
platform::Failure RefusedFilter(const std::string& expression, const std::string& reason);

/// A filter expression compiled for one handle. What the compiler refuses is
/// `failure::FilterRefused`, with the compiler's own words.
class FilterProgram {
 public:
  /// How far the compiler may go. Its optimiser follows a tag beside the frame wrongly, so that
  /// `vlan 5` behind another test selects nothing; but only with it a contradiction is refused.
  enum class Effort { Optimised, Plain };

  /// `shown` is the expression as the user knows it, for the text of a refusal.
  FilterProgram(pcap& handle, const std::string& expression, const std::string& shown,
                Effort effort);

  bpf_program& Code() const { return *code_; }

 private:
  struct Freer {
    void operator()(bpf_program* code) const;
  };
  std::unique_ptr<bpf_program, Freer> code_;
};

}  // namespace adapters
