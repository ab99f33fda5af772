#include "report/report_analysis.h"

#include "report/analysis_bench.h"

namespace {

using packetroutines::HexLineText;
using report_tests::Analysis;
using support::FrameBytes;
using support::SvFrame;
namespace row = report_tests::row;

TEST_F(Analysis, ReadsTheFieldsOfAFrame) {
  settings.FilterString = "and vlan 7";
  EXPECT_EQ(Analyse(SvFrame("MU01").Count(4799).Synch(1).Bytes()), "MU01");
  EXPECT_TRUE(accepted);
  EXPECT_EQ(Row(row::Filter), "and vlan 7 / MU01 / MU02");
  EXPECT_EQ(Row(row::Destination), "01:0C:CD:04:00:01");
  EXPECT_EQ(Row(row::Source), "02:00:00:00:00:07");
  EXPECT_EQ(Row(row::Ethertype), "0x88BA");
  EXPECT_EQ(Row(row::AppId), "0x4000");
  EXPECT_EQ(Row(row::Sequence), "lenght: 57");
  EXPECT_EQ(Row(row::FirstAsdu), "lenght: 55");
  EXPECT_EQ(Row(row::StationId), "MU01");
  EXPECT_EQ(Row(row::SampleCount), "4799");
  EXPECT_EQ(Row(row::Synchronisation), "value=1; synchronized by a local area clock");
}

TEST_F(Analysis, LeavesTheRowsThatItDoesNotReach) {
  Analyse(SvFrame().Bytes());
  for (const std::size_t i : {10, 11, 12}) EXPECT_EQ(Row(i), "- - - -");
}

TEST_F(Analysis, ShowsEachRowThatItWrote) {
  for (platform::Label& value : main.Label8) value.Visible = false;
  Analyse(SvFrame().Bytes());
  std::vector<bool> expected(23, true);
  for (const std::size_t i : {7, 8, 9, 10, 11, 12}) expected[i] = false;
  EXPECT_EQ(Shown(), expected);
}

TEST_F(Analysis, HidesARowWhileItChanges) {
  std::vector<std::string> changedWhileShown;
  for (const std::size_t i : {0, 1, 2, 3, 4, 5, 6, 13, 22}) {
    main.Label8[i].Caption.Observe([this, i, &changedWhileShown] {
      if (main.Label8[i].Visible) changedWhileShown.push_back(std::to_string(i));
    });
  }
  Analyse(SvFrame().Bytes());
  EXPECT_TRUE(changedWhileShown.empty());
}

TEST_F(Analysis, AppendsToTheIdThatItIsGiven) {
  std::string id = "x";
  analysis.ReportAnalyse(support::CellsOf(SvFrame("MU01").Bytes()), id);
  EXPECT_EQ(id, "xMU01");
  EXPECT_EQ(Row(row::StationId), "xMU01");
}

TEST_F(Analysis, ReadsTheIdInTheCodePageOfTheFrames) {
  EXPECT_EQ(Analyse(SvFrame("M\xDC"
                            "01")
                        .Bytes()),
            "MÜ01");
}

TEST_F(Analysis, ShowsTheFirstByteOfALongLength) {
  Analyse(SvFrame().Channels(24).Bytes());
  EXPECT_EQ(Row(row::Sequence), "lenght: 81");
}

TEST_F(Analysis, ShowsTheTagOfATaggedFrameWhereTheEthertypeIs) {
  EXPECT_EQ(Analyse(SvFrame("MU01").Count(7).Tagged().Bytes()), "MU01");
  EXPECT_EQ(Row(row::Ethertype), "0x8100");
  EXPECT_EQ(Row(row::AppId), "0x8000");
  EXPECT_EQ(Row(row::SampleCount), "7");
}

TEST_F(Analysis, ReadsTwoBytesOfACounterThatHasOne) {
  FrameBytes frame(60, 0);
  const FrameBytes fields{0x80, 0x01, 0x01, 0xA2, 0x20, 0x30, 0x1E, 0x80, 0x01,
                          'A',  0x82, 0x01, 0x12, 0xBF, 0x85, 0x01, 0x00};
  std::copy(fields.begin(), fields.end(), frame.begin() + 20);
  EXPECT_EQ(Analyse(frame), "A");
  EXPECT_EQ(Row(row::SampleCount), "4799");
}

TEST_F(Analysis, ShowsTheLargestCounter) {
  Analyse(SvFrame().Count(65535).Bytes());
  EXPECT_EQ(Row(row::SampleCount), "65535");
}

TEST_F(Analysis, TellsHowTheSamplesAreSynchronised) {
  const std::pair<int, const char*> texts[] = {
      {0x00, "value=0; not synchronized by an external clock"},
      {0x01, "value=1; synchronized by a local area clock"},
      {0x02, "value=2; synchronized by a global area clock"},
      {0x0A, "value=0; not synchronized by an external clock"},
      {0x1F, "value=1; synchronized by a local area clock"},
      {0x2E, "value=2; synchronized by a global area clock"},
      {0xC1, "value=0; not synchronized by an external clock"}};
  for (const auto& [synch, text] : texts) {
    main.Label8[row::Synchronisation].Caption = "";
    Analyse(SvFrame().Synch(static_cast<std::uint8_t>(synch)).Bytes());
    EXPECT_EQ(Row(row::Synchronisation), text) << synch;
  }
}

TEST_F(Analysis, KeepsTheSynchronisationTextAtAnyOtherValue) {
  for (const int synch : {0x05, 0x03, 0x10, 0x9A}) {
    Analyse(SvFrame().Synch(static_cast<std::uint8_t>(synch)).Bytes());
    EXPECT_EQ(Row(row::Synchronisation), "- - - -") << synch;
  }
  Analyse(SvFrame().Synch(1).Bytes());
  Analyse(SvFrame().Synch(5).Bytes());
  EXPECT_EQ(Row(row::Synchronisation), "value=1; synchronized by a local area clock");
}

class Misled : public Analysis {};

TEST_F(Misled, TheCounterIsSearchedInTheDigitsOfAnIdThatSpellsItsTag) {
  // The bytes 0x38 and 0x2D spell "382D", in which "82" stands across the border.
  EXPECT_EQ(Analyse(SvFrame("8-MU").Count(4799).Bytes()), "8-MU");
  // Behind that "82" stands "D4" for its length, then "D5" and "58".
  EXPECT_EQ(Row(row::SampleCount), std::to_string(0xD5 * 256 + 0x58));
}

TEST_F(Misled, TheSynchronisationIsSearchedInTheDigitsBehindTheCounter) {
  // The counter's own bytes 0x38 and 0x50 spell "85".
  Analyse(SvFrame("MU01").Count(0x3850).Bytes());
  EXPECT_EQ(Row(row::SampleCount), std::to_string(0x3850));
  EXPECT_EQ(Row(row::Synchronisation), "- - - -");
}

TEST_F(Misled, TheNumberOfUnitsIsFoundInTheAddressesFirst) {
  FrameBytes frame = SvFrame("MU01").Bytes();
  frame[6] = 0x28;
  frame[7] = 0x00;
  frame[8] = 0x10;
  Analyse(frame);
  EXPECT_EQ(Row(row::Source), "28:00:10:00:00:07");
  // "8001" stands at the second digit of byte 7, position 14, so the digits from 22 and 26 on show.
  EXPECT_EQ(Row(row::Sequence), "lenght: 00");
  EXPECT_EQ(Row(row::FirstAsdu), "lenght: 8B");
}

TEST_F(Misled, AnIdThatSpellsTheTagsIsReadWholeAllTheSame) {
  for (const std::string id :
       {"\x18\x02", "\x80\x01", "\x08\x20", "\x85", "\x80", "\x18\x00\x18"}) {
    EXPECT_EQ(Analyse(SvFrame(id).Bytes()), platform_.Code.ToUtf8(id));
  }
}

TEST_F(Misled, AFrameWithoutTagsShowsTextsWithoutAMeaning) {
  EXPECT_EQ(Analyse(FrameBytes(20, 0x11)), std::string("\x11").append(16, '\x11'));
  EXPECT_EQ(Row(row::Sequence), "lenght: 11");
  EXPECT_EQ(Row(row::SampleCount), std::to_string(0x1111));
}

TEST_F(Misled, AnEmptyFrameShowsEmptyDigits) {
  EXPECT_EQ(Analyse({}), "");
  EXPECT_EQ(Row(row::Destination), ":::::");
  EXPECT_EQ(Row(row::Ethertype), "0x");
  EXPECT_EQ(Row(row::Sequence), "lenght: ");
  EXPECT_EQ(Row(row::SampleCount), "0");
  EXPECT_EQ(Row(row::Synchronisation), "value=0; not synchronized by an external clock");
}

class TwoStreams : public Analysis {
 protected:
  TwoStreams() { present.StreamCount = 2; }
};

TEST_F(TwoStreams, AFrameOfTheChosenStationIsShown) {
  Analyse(SvFrame("MU01").Bytes());
  EXPECT_TRUE(accepted);
  main.Option3[7].Value = true;
  Analyse(SvFrame("MU02").Bytes());
  EXPECT_TRUE(accepted);
  EXPECT_EQ(Row(row::StationId), "MU02");
}

TEST_F(TwoStreams, AFrameOfTheOtherStationLeavesTheHeadHiddenAndTheRestAsItWas) {
  Analyse(SvFrame("MU01").Count(11).Synch(1).Bytes());
  const std::string dump = Row(row::FirstDump);
  EXPECT_EQ(Analyse(SvFrame("MU02").Count(22).Synch(0).Tagged().Bytes()), "MU02");
  EXPECT_FALSE(accepted);
  std::vector<bool> expected(23, true);
  for (std::size_t i = 0; i < 7; ++i) expected[i] = false;
  EXPECT_EQ(Shown(), expected);
  EXPECT_EQ(Row(row::Ethertype), "0x8100");
  EXPECT_EQ(Row(row::StationId), "MU01");
  EXPECT_EQ(Row(row::SampleCount), "11");
  EXPECT_EQ(Row(row::Synchronisation), "value=1; synchronized by a local area clock");
  EXPECT_EQ(Row(row::FirstDump), dump);
}

TEST_F(TwoStreams, TheChoiceOfTheSecondRefusesTheFirst) {
  main.Option3[7].Value = true;
  EXPECT_EQ(Analyse(SvFrame("MU01").Bytes()), "MU01");
  EXPECT_FALSE(accepted);
}

TEST_F(TwoStreams, CaseAndLengthOfAnIdCount) {
  for (const char* id : {"mu01", "MU0", "MU011", ""}) {
    Analyse(SvFrame(id).Bytes());
    EXPECT_FALSE(accepted) << id;
  }
}

TEST_F(TwoStreams, AnotherStationIsShownWhereThereIsOneStream) {
  present.StreamCount = 1;
  Analyse(SvFrame("MU99").Bytes());
  EXPECT_TRUE(accepted);
}

class Dump : public Analysis {};

TEST_F(Dump, HasTenLinesOfSixteenBytesWithTheirOffset) {
  FrameBytes frame(200);
  for (std::size_t i = 0; i < frame.size(); ++i) frame[i] = static_cast<std::uint8_t>(i);
  Analyse(frame);
  EXPECT_EQ(Row(row::FirstDump + 4),
            "40: 40 41 42 43 44 45 46 47 48 49 4A 4B 4C 4D 4E 4F "
            "@ A B C D E F G H I J K L M N O ");
  EXPECT_EQ(Row(row::FirstDump + 9).substr(0, 55),
            "90: 90 91 92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E 9F " + Row(22).substr(52, 3));
  for (std::size_t line = 0; line < 10; ++line) {
    EXPECT_EQ(Row(13 + line).substr(0, 4), std::to_string(line) + "0: ");
  }
}

TEST_F(Dump, IsFilledUpBehindTheEndOfTheFrame) {
  FrameBytes frame(100, 0x41);
  Analyse(frame);
  EXPECT_EQ(Row(row::FirstDump + 6),
            "60: 41 41 41 41 00 00 00 00 00 00 00 00 00 00 00 00 "
            "A A A A . . . . . . . . . . . . ");
  for (const std::size_t line : {7, 8, 9}) {
    EXPECT_EQ(Row(row::FirstDump + line), std::to_string(line) +
                                              "0: 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                                              ". . . . . . . . . . . . . . . . ");
  }
}

TEST_F(Dump, ALineReachesOverBothColumns) {
  Analyse(SvFrame().Bytes());
  for (std::size_t i = row::FirstDump; i < row::Count; ++i) {
    EXPECT_EQ(main.Label8[i].Left.Get(), 600);
    EXPECT_EQ(main.Label8[i].Width.Get(), 10500);
  }
  EXPECT_EQ(main.Label8[12].Left.Get(), 3900);
}

TEST(HexLine, ShowsBytesBelow31AsAPointAnd31AsItself) {
  const adapters::Windows1252 code;
  EXPECT_EQ(HexLineText("1E 1F 20 00 7E ", code), ". \x1F   . ~ ");
  EXPECT_EQ(HexLineText("e4 DF ", code), "ä ß ");
  EXPECT_EQ(HexLineText("", code), "");
  EXPECT_EQ(HexLineText("41 4", code), "A @ ");
}

}  // namespace
