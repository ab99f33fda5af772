// Whatever bytes come as a frame, its structure is read within them.

#include <cstddef>
#include <cstdint>

#include "fuzz/demand.h"
#include "sv/asdu.h"

namespace {

using fuzz::Demand;

void DemandWithin(sv::Octets part, sv::Octets whole) {
  if (part.empty()) return;
  Demand(part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size(),
         "a part lies within its frame");
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
  Demand(frame.FaultAt <= size && frame.AsdusAt <= frame.AsdusEnd && frame.AsdusEnd <= size,
         "the places of a frame lie within it");
  sv::AsduReader reader(frame);
  volatile std::uint32_t sum = 0;
  for (sv::Asdu asdu; reader.Next(asdu);) {
    DemandWithin(asdu.Samples, bytes);
    DemandWithin(asdu.RefrTm, bytes);
    Demand(asdu.SmpCntAt > 0 && asdu.SmpCntAt < size && asdu.SamplesAt <= size,
           "the places of an ASDU lie within its frame");
    sum = sum + Sum(asdu);
  }
  Demand(reader.FaultAt() <= size, "a fault lies within its frame");
  if (reader.Why() == sv::Fault::None) {
    Demand(reader.Count() == frame.AsduCount, "a sound frame has as many ASDUs as it tells");
  }
  return 0;
}
