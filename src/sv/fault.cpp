#include "sv/fault.h"

namespace sv {

const char* Words(Fault fault) {
  switch (fault) {
    case Fault::None:
      return "";
    case Fault::HeadCut:
      return "the frame ends within its addresses, tags or ethertype";
    case Fault::OtherEthertype:
      return "the ethertype is not that of sampled values, 0x88BA";
    case Fault::PduHeadCut:
      return "the frame ends within AppID, length and reserved words";
    case Fault::PduCut:
      return "the length does not fit the frame";
    case Fault::ElementCut:
      return "an element is longer than what it stands in";
    case Fault::LongTag:
      return "a tag has several bytes";
    case Fault::NoSavPdu:
      return "there is no savPdu (tag 60)";
    case Fault::NoAsduCount:
      return "there is no noASDU (tag 80)";
    case Fault::NoAsduSequence:
      return "there is no sequence of ASDUs (tag A2)";
    case Fault::NoAsdu:
      return "an element of the sequence is no ASDU (tag 30)";
    case Fault::OtherAsduCount:
      return "noASDU tells of another number of ASDUs than there are";
    case Fault::FieldSize:
      return "a field has another size than the standard gives";
    case Fault::NoSvId:
      return "an ASDU has no svID (tag 80)";
    case Fault::NoSmpCnt:
      return "an ASDU has no smpCnt (tag 82)";
    case Fault::NoSamples:
      return "an ASDU has no samples (tag 87)";
  }
  return "";
}

}  // namespace sv
