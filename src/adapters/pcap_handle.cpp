#include "adapters/pcap_handle.h"

#include <pcap/pcap.h>

namespace adapters {

void PcapCloser::operator()(pcap* handle) const {
  pcap_close(handle);
}

void FilterProgram::Freer::operator()(bpf_program* code) const {
  pcap_freecode(code);
  delete code;
}

FilterProgram::FilterProgram(pcap& handle, const std::string& expression, const std::string& shown,
                             Effort effort)
    : code_(new bpf_program{}) {
  const int optimise = effort == Effort::Optimised ? 1 : 0;
  if (pcap_compile(&handle, code_.get(), expression.c_str(), optimise, PCAP_NETMASK_UNKNOWN) != 0) {
    throw RefusedFilter(shown, pcap_geterr(&handle));
  }
}

platform::Failure RefusedFilter(const std::string& expression, const std::string& reason) {
  return {platform::failure::FilterRefused, "The filter \"" + expression + "\" was refused: " +
                                                reason + ". Please correct the filter condition."};
}

}  // namespace adapters
