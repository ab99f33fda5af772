#include "report/structural_ids.h"

#include <algorithm>

#include "sv/asdu.h"

namespace packetroutines {

StructuralIds::StructuralIds(sv::Octets bytes, std::size_t length) {
  const sv::Frame frame = sv::ReadFrame(bytes, length);
  sv::AsduReader reader(frame);
  sv::Asdu asdu;
  while (reader.Next(asdu)) {
    if (std::find(Ids.begin(), Ids.end(), asdu.SvId) == Ids.end()) Ids.push_back(asdu.SvId);
  }
  Why = reader.Why();
}

}  // namespace packetroutines
