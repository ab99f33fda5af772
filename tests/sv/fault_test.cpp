// What a user reads of a frame without the structure of the standards.

#include "sv/fault.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using sv::Fault;

TEST(FaultWords, NameWhatIsWrong) {
  const std::pair<Fault, const char*> told[] = {
      {Fault::None, ""},
      {Fault::HeadCut, "the frame ends within its addresses, tags or ethertype"},
      {Fault::OtherEthertype, "the ethertype is not that of sampled values, 0x88BA"},
      {Fault::PduHeadCut, "the frame ends within AppID, length and reserved words"},
      {Fault::PduCut, "the length does not fit the frame"},
      {Fault::ElementCut, "an element is longer than what it stands in"},
      {Fault::LongTag, "a tag has several bytes"},
      {Fault::NoSavPdu, "there is no savPdu (tag 60)"},
      {Fault::NoAsduCount, "there is no noASDU (tag 80)"},
      {Fault::NoAsduSequence, "there is no sequence of ASDUs (tag A2)"},
      {Fault::NoAsdu, "an element of the sequence is no ASDU (tag 30)"},
      {Fault::OtherAsduCount, "noASDU tells of another number of ASDUs than there are"},
      {Fault::FieldSize, "a field has another size than the standard gives"},
      {Fault::NoSvId, "an ASDU has no svID (tag 80)"},
      {Fault::NoSmpCnt, "an ASDU has no smpCnt (tag 82)"},
      {Fault::NoSamples, "an ASDU has no samples (tag 87)"},
  };
  for (const auto& [fault, words] : told) EXPECT_STREQ(sv::Words(fault), words);
}

}  // namespace
