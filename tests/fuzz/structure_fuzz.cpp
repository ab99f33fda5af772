// Whatever bytes come as a frame, its structure is read within them.

#include <cstddef>
#include <cstdint>

#include "sv/asdu.h"

namespace {

void Demand(bool holds) {
  if (!holds) __builtin_trap();
}

void DemandWithin(sv::Octets part, sv::Octets whole) {
  if (part.empty()) return;
  Demand(part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size());
}

/// Every byte that the ASDU shows is looked at, so that the sanitizer sees one that is not there.
std::uint32_t Sum(const sv::Asdu& asdu) {
  std::uint32_t sum = 0;
  for (const char character : asdu.SvId) sum += static_cast<std::uint8_t>(character);
  for (const sv::Octets octets : {asdu.RefrTm, asdu.GmIdentity, asdu.Samples}) {
    for (const std::uint8_t octet : octets) sum += octet;
  }
  for (std::size_t k = 0; k < asdu.Channels(); ++k) {
    sum += asdu.Quality(k) + static_cast<std::uint32_t>(asdu.Value(k));
  }
  return sum;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const sv::Octets bytes(data, size);
  const sv::Frame frame = sv::ReadFrame(bytes, size);
  Demand(frame.FaultAt <= size && frame.AsdusAt <= frame.AsdusEnd && frame.AsdusEnd <= size);
  sv::AsduReader reader(frame);
  volatile std::uint32_t sum = 0;
  for (sv::Asdu asdu; reader.Next(asdu);) {
    DemandWithin(asdu.Samples, bytes);
    DemandWithin(asdu.RefrTm, bytes);
    Demand(asdu.SmpCntAt > 0 && asdu.SmpCntAt < size && asdu.SamplesAt <= size);
    sum = sum + Sum(asdu);
  }
  Demand(reader.FaultAt() <= size);
  if (reader.Why() == sv::Fault::None) Demand(reader.Count() == frame.AsduCount);
  return 0;
}
