#include "console/comtrade/comtrade_head.h"

#include <gtest/gtest.h>

#include "config/program_facts.h"

namespace console {
namespace {

ComtradeHead TwoChannels() {
  ComtradeHead head;
  head.Station = "North";
  head.Channels = {{.Name = "Ia", .Phase = "A", .Unit = "A", .Factor = 0.001, .Least = -5},
                   {.Name = "Va", .Phase = "A", .Unit = "kV", .Factor = 1.0 / 3, .Greatest = 9}};
  head.Samples = 9600;
  head.Start = {2026, 11, 2, 8, 4, 9};
  head.StartMicroseconds = 250;
  return head;
}

TEST(ComtradeHead, TellsEachFieldOfTheEditionOf1999) {
  EXPECT_EQ(ConfigurationText(TwoChannels()), std::string("North,Vornik ") +
                                                  config::ProgramVersion +
                                                  ",1999\r\n"
                                                  "2,2A,0D\r\n"
                                                  "1,Ia,A,,A,0.001,0,0,-5,0,1,1,P\r\n"
                                                  "2,Va,A,,kV,0.333333333333333,0,0,0,9,1,1,P\r\n"
                                                  "50\r\n"
                                                  "1\r\n"
                                                  "4000,9600\r\n"
                                                  "02/11/2026,08:04:09.000250\r\n"
                                                  "02/11/2026,08:04:09.000250\r\n"
                                                  "ASCII\r\n"
                                                  "250\r\n");
}

TEST(ComtradeHead, TellsTheClockSince2013) {
  ComtradeHead head = TwoChannels();
  head.Edition = ComtradeEdition::Of2013;
  head.Form = ComtradeForm::Binary32;
  head.Rate = 14'400;
  head.AheadOfGreenwich = std::chrono::minutes(-210);

  const std::string text = ConfigurationText(head);

  EXPECT_NE(text.find(",2013\r\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("BINARY32\r\n69.4444444444444\r\n-3h30,-3h30\r\nF,3\r\n")) << text;
}

TEST(ComtradeHead, TellsWholeHoursAheadOfGreenwichWithoutMinutes) {
  ComtradeHead head = TwoChannels();
  head.Edition = ComtradeEdition::Of2013;
  head.AheadOfGreenwich = std::chrono::hours(1);

  EXPECT_TRUE(ConfigurationText(head).ends_with("250\r\n+1,+1\r\nF,3\r\n"));
}

TEST(ComtradeHead, TellsALimitThatIsTooLongALittleFartherOut) {
  ComtradeHead head = TwoChannels();
  head.Edition = ComtradeEdition::Of2013;
  head.Form = ComtradeForm::Float32;
  head.Channels.resize(1);
  head.Channels[0].Least = -1.2345678e-6;
  head.Channels[0].Greatest = 1.2345678e-6;

  EXPECT_NE(ConfigurationText(head).find(",-1.23458E-06,1.2345678E-06,"), std::string::npos)
      << ConfigurationText(head);
}

TEST(ComtradeHead, StoresByTheFactorThatIsWritten) {
  EXPECT_EQ(WrittenFactor(1.0 / 3), 0.333333333333333);
  EXPECT_EQ(WrittenFactor(0.001), 0.001);
}

TEST(ComtradeHead, RefusesNamesThatItsLinesCannotHold) {
  const std::string longest(64, 'x');

  EXPECT_EQ(UnfitComtradeName(longest, ComtradeEdition::Of1999), "");
  EXPECT_EQ(UnfitComtradeName("Čakovec", ComtradeEdition::Of2013), "");
  EXPECT_NE(UnfitComtradeName("Čakovec", ComtradeEdition::Of1999), "");
  EXPECT_NE(UnfitComtradeName(longest + "x", ComtradeEdition::Of2013), "");
  EXPECT_NE(UnfitComtradeName("a,b", ComtradeEdition::Of2013), "");
  EXPECT_NE(UnfitComtradeName("a\nb", ComtradeEdition::Of2013), "");
}

}  // namespace
}  // namespace console
