// Frames beyond the usual profile: what a search of digits makes of them.

#include "report/analysis_bench.h"
#include "report/asdu_frame.h"
#include "report/naive_report.h"

namespace {

using report_tests::Analysis;
using report_tests::AsduFrame;
namespace row = report_tests::row;

class RichFrame : public Analysis {
 protected:
  /// What the second reading of the frame says, too.
  void ExpectAsRead(const support::FrameBytes& frame) {
    const report_tests::NaiveReport naive(frame);
    EXPECT_EQ(Row(row::Sequence), naive.Sequence);
    EXPECT_EQ(Row(row::FirstAsdu), naive.FirstAsdu);
    EXPECT_EQ(Row(row::StationId), platform_.Code.ToUtf8(naive.Id));
    EXPECT_EQ(Row(row::SampleCount), naive.SampleCount);
    for (std::size_t line = 0; line < naive.Dump.size(); ++line) {
      EXPECT_EQ(Row(row::FirstDump + line).substr(0, naive.Dump[line].size()), naive.Dump[line]);
    }
  }
};

TEST_F(RichFrame, OfEightUnitsShowsTheFirstOfThem) {
  AsduFrame frame;
  frame.Asdus = 8;
  frame.Count = 4792;
  frame.Synch = 1;
  EXPECT_EQ(Analyse(frame.Get()), "MU01");
  EXPECT_EQ(Row(row::SampleCount), "4792");
  EXPECT_EQ(Row(row::Synchronisation), "value=1; synchronized by a local area clock");
  ExpectAsRead(frame.Get());
}

TEST_F(RichFrame, WithLengthsOfTwoBytesShowsTheFirstByteOfTheFirst) {
  AsduFrame frame;
  frame.Asdus = 8;
  Analyse(frame.Get());
  // 8 units of 87 bytes: A2 82 02 B8 30 55. One byte is assumed, so the second row meets the third.
  EXPECT_EQ(Row(row::Sequence), "lenght: 82");
  EXPECT_EQ(Row(row::FirstAsdu), "lenght: B8");
}

TEST_F(RichFrame, OfTwoUnitsHasALongLengthOfOneByte) {
  AsduFrame frame;
  frame.Asdus = 2;
  EXPECT_EQ(Analyse(frame.Get()), "MU01");
  EXPECT_EQ(Row(row::Sequence), "lenght: 81");
  ExpectAsRead(frame.Get());
}

TEST_F(RichFrame, WithOptionalFieldsIsReadLikeAPlainOne) {
  AsduFrame frame;
  frame.Count = 17;
  frame.Synch = 0;
  frame.DataSet = "MU01/LLN0$PhsMeas1";
  frame.RefreshTime = {0x65, 0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x0A};
  frame.RateAndMode = true;
  EXPECT_EQ(Analyse(frame.Get()), "MU01");
  EXPECT_EQ(Row(row::SampleCount), "17");
  EXPECT_EQ(Row(row::Synchronisation), "value=0; not synchronized by an external clock");
  ExpectAsRead(frame.Get());
}

TEST_F(RichFrame, WhoseDataSetSpellsTheCountersTagMisleadsTheSearch) {
  AsduFrame frame;
  frame.Count = 17;
  // "8-" is 38 2D, in whose digits "82" stands.
  frame.DataSet = "MU8-1";
  EXPECT_EQ(Analyse(frame.Get()), "MU01");
  EXPECT_NE(Row(row::SampleCount), "17");
  ExpectAsRead(frame.Get());
}

TEST_F(RichFrame, OfFewOrManyChannelsIsReadAlike) {
  for (const std::size_t channels : {4U, 12U, 20U}) {
    AsduFrame frame;
    frame.Channels = channels;
    frame.Count = 321;
    EXPECT_EQ(Analyse(frame.Get()), "MU01") << channels;
    EXPECT_EQ(Row(row::SampleCount), "321") << channels;
    ExpectAsRead(frame.Get());
  }
}

TEST_F(RichFrame, WithAnIdOf65CharactersShowsItWhole) {
  AsduFrame frame;
  frame.Id = std::string(64, 'M') + "1";
  frame.Count = 5;
  EXPECT_EQ(Analyse(frame.Get()), frame.Id);
  EXPECT_EQ(Row(row::StationId), frame.Id);
  EXPECT_EQ(Row(row::SampleCount), "5");
}

TEST_F(RichFrame, KeepsAnIdWithPaddingOrALineEndAsItCame) {
  for (const std::string& id : {std::string("MU01\0\0\0", 7), std::string("MU01\n")}) {
    AsduFrame frame;
    frame.Id = id;
    EXPECT_EQ(Analyse(frame.Get()), id);
    EXPECT_EQ(Row(row::StationId), id);
  }
}

TEST_F(RichFrame, WithATagOfAnyPriorityAndNetworkIsReadBehindIt) {
  const AsduFrame::Bytes tags[] = {{0x00, 0x00}, {0x80, 0x00}, {0x80, 0x05}, {0xE0, 0x64},
                                   {0x60, 0x01}, {0x2F, 0xFF}, {0x90, 0x02}};
  for (const AsduFrame::Bytes& tag : tags) {
    AsduFrame frame;
    frame.Count = 44;
    frame.Tag = tag;
    EXPECT_EQ(Analyse(frame.Get()), "MU01") << int{tag[0]} << " " << int{tag[1]};
    EXPECT_EQ(Row(row::Ethertype), "0x8100");
    EXPECT_EQ(Row(row::SampleCount), "44");
    ExpectAsRead(frame.Get());
  }
}

TEST_F(RichFrame, OfPriority4OnNetwork1HasTheDigitsOfTheUnitsInItsTag) {
  AsduFrame frame;
  frame.Tag = {0x80, 0x01};
  // The tag is taken for the number of units, and the number of units for the ID.
  EXPECT_EQ(Analyse(frame.Get()), "\x01");
  EXPECT_EQ(Row(row::AppId), "0x8001");
  ExpectAsRead(frame.Get());
}

}  // namespace
