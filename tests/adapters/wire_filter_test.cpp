#include "adapters/wire_filter.h"

#include <gtest/gtest.h>

#include <string>

#include "adapters/capture_file.h"
#include "adapters/vlan_term.h"
#include "base/failure.h"

namespace {

using adapter_tests::Bytes;
using adapter_tests::Marked;

const Bytes Plain = Marked(1);
const Bytes Vlan5 = Marked(1, 5);
const Bytes PriorityOnly = Marked(1, 0);
/// With its tag 202 bytes long, without it 198.
const Bytes LongTagged = Marked(1, 6, 202);

bool Selects(const std::string& userText, const Bytes& frame, std::size_t length = 0) {
  adapters::WireFilter filter("ether proto 0x88ba" + userText);
  return filter.Selects(frame, length == 0 ? frame.size() : length);
}

TEST(WireFilter, SelectsTheEthertypeWithAndWithoutATag) {
  EXPECT_TRUE(Selects("", Plain));
  EXPECT_TRUE(Selects("", Vlan5));
  EXPECT_TRUE(Selects("", PriorityOnly));
  Bytes other = Vlan5;
  other[17] = 0xB8;
  EXPECT_FALSE(Selects("", other));
}

TEST(WireFilter, TakesAProviderTagOffToo) {
  Bytes provider = Vlan5;
  provider[12] = 0x88;
  provider[13] = 0xA8;
  EXPECT_TRUE(Selects("", provider));
  EXPECT_TRUE(Selects(" and vlan 5", provider));
}

TEST(WireFilter, TakesOnlyTheOuterTagOff) {
  Bytes twice = Vlan5;
  twice.insert(twice.begin() + 12, {0x81, 0x00, 0x00, 0x07});
  EXPECT_FALSE(Selects("", twice));
}

TEST(WireFilter, SelectsByAddress) {
  EXPECT_TRUE(Selects(" and ether src 02:00:00:00:00:07", Vlan5));
  EXPECT_FALSE(Selects(" and ether src 02:00:00:00:00:08", Vlan5));
}

TEST(WireFilter, SelectsByTheTagBesideTheFrame) {
  EXPECT_TRUE(Selects(" and vlan", Vlan5));
  EXPECT_TRUE(Selects(" and vlan", PriorityOnly));
  EXPECT_FALSE(Selects(" and vlan", Plain));
  EXPECT_FALSE(Selects(" and not vlan", Vlan5));
  EXPECT_TRUE(Selects(" and not vlan", Plain));
}

TEST(WireFilter, SelectsByTheNumberOfTheVlan) {
  EXPECT_TRUE(Selects(" and vlan 5", Vlan5));
  EXPECT_TRUE(Selects(" and vlan 0x5", Vlan5));
  EXPECT_TRUE(Selects(" and vlan (5)", Vlan5));
  EXPECT_TRUE(Selects(" and vlan 0", PriorityOnly));
  EXPECT_TRUE(Selects(" and vlan 010", Marked(1, 8)));
  EXPECT_FALSE(Selects(" and vlan 010", Marked(1, 10)));
  EXPECT_FALSE(Selects(" and vlan 5", LongTagged));
  EXPECT_FALSE(Selects(" and vlan 5", Plain));
  EXPECT_TRUE(Selects(" and not vlan 5", LongTagged));
}

TEST(WireFilter, LooksBehindAVlanTestAtTheSamePlaces) {
  EXPECT_TRUE(Selects(" and ether[14:2]=0x4000", Plain));
  EXPECT_TRUE(Selects(" and ether[14:2]=0x4000", Vlan5));
  EXPECT_TRUE(Selects(" and vlan and ether[14:2]=0x4000", Vlan5));
}

TEST(WireFilter, LooksForASecondTagInsideTheFrame) {
  EXPECT_FALSE(Selects(" and (vlan 6 or vlan 5)", Vlan5));
  EXPECT_TRUE(Selects(" and (vlan 5 or vlan 6)", Vlan5));
}

TEST(WireFilter, CountsTheLengthWithoutTheTag) {
  EXPECT_TRUE(Selects(" and less 198", LongTagged));
  EXPECT_FALSE(Selects(" and less 197", LongTagged));
  EXPECT_FALSE(Selects(" and less 200", Plain, 201));
  EXPECT_TRUE(Selects(" and less 200", Vlan5, 204));
}

TEST(WireFilter, RefusesWhatCannotBeCompiled) {
  for (const std::string text :
       {" nonsense", " and vlan and", " and vlan 4096", " and", " and ip"}) {
    try {
      Selects(text, Plain);
      FAIL() << "accepted:" << text;
    } catch (const platform::Failure& refusal) {
      EXPECT_EQ(refusal.Number(), platform::failure::FilterRefused) << text;
      EXPECT_NE(refusal.Text().find("ether proto 0x88ba" + text), std::string::npos)
          << refusal.Text();
    }
  }
}

TEST(WireFilter, LooksAtFramesThatAreTooShortForATag) {
  EXPECT_FALSE(Selects("", Bytes{0x01, 0x0C, 0xCD}));
  EXPECT_FALSE(Selects("", Bytes{}));
  const Bytes cutInTag(Vlan5.begin(), Vlan5.begin() + 14);
  EXPECT_FALSE(Selects("", cutInTag));
}

/// The number of the term, or -1 where it has none.
int IdOf(const std::string& expression) {
  const auto term = adapters::FindVlanTerm(expression);
  return term && term->Id ? static_cast<int>(*term->Id) : -1;
}

TEST(VlanTerm, HasItsNumberInTheWaysOfTheFilterLanguage) {
  EXPECT_EQ(IdOf("vlan 12"), 12);
  EXPECT_EQ(IdOf("vlan 0x12"), 18);
  EXPECT_EQ(IdOf("vlan 0X1a"), 26);
  EXPECT_EQ(IdOf("vlan 012"), 10);
  EXPECT_EQ(IdOf("vlan 0"), 0);
  EXPECT_EQ(IdOf("vlan 00"), 0);
  EXPECT_EQ(IdOf("vlan 08"), -1);
  EXPECT_EQ(IdOf("vlan 12x"), -1);
  EXPECT_EQ(IdOf("vlan"), -1);
}

TEST(VlanTerm, EndsBehindItsNumberWhateverSpacesStandAroundIt) {
  for (const std::string text : {"vlan 5", "vlan  5", "vlan\t5", "vlan\n5", "vlan(5)", "vlan (5)",
                                 "vlan( 5 )", "vlan ( ( 5 ) )", "vlan((5 ) )"}) {
    const auto term = adapters::FindVlanTerm("ip and " + text + " and udp");
    ASSERT_TRUE(term) << text;
    EXPECT_EQ(term->Id, 5U) << text;
    EXPECT_EQ(term->WherePassed, "ip and  greater 0  and udp") << text;
    EXPECT_EQ(term->WhereFailed, "ip and  less 0  and udp") << text;
  }
}

TEST(VlanTerm, WithoutANumberEndsBehindTheKeyword) {
  for (const std::string tail :
       {"", " ", " and 5", ")", " (", " ( 5", " (5 and", " (5 or 6)", "&&5"}) {
    const auto term = adapters::FindVlanTerm("(ip and vlan" + tail);
    ASSERT_TRUE(term) << tail;
    EXPECT_FALSE(term->Id) << tail;
    EXPECT_EQ(term->WherePassed, "(ip and  greater 0 " + tail);
  }
}

TEST(VlanTerm, IsTheKeywordAlone) {
  EXPECT_TRUE(adapters::FindVlanTerm("ip and(vlan)"));
  EXPECT_FALSE(adapters::FindVlanTerm("host vlan-box"));
  EXPECT_FALSE(adapters::FindVlanTerm("host vlan.5"));
  EXPECT_FALSE(adapters::FindVlanTerm("host my.vlan"));
  EXPECT_FALSE(adapters::FindVlanTerm("host \\vlan"));
  EXPECT_FALSE(adapters::FindVlanTerm(""));
}

}  // namespace
