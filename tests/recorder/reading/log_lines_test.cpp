#include <gmock/gmock.h>

#include <algorithm>

#include "recorder/reading/analysis_scene.h"

namespace support {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

using LogScene = AnalysisScene;

TEST(Log, TellsAllOfARecording) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(8000)));
  FrameBytes frame = SvFrame("MU01").Bytes();
  const FrameBytes addresses{1, 0x0C, 0xCD, 4, 0, 1, 0, 0x50, 0xC2, 0x4F, 0x9A, 7};
  std::copy(addresses.begin(), addresses.end(), frame.begin());
  scene.LastFrame(frame);

  EXPECT_FALSE(scene.BuildRecordLog());

  EXPECT_EQ(
      scene.Files.Stored[scene.LogPath()],
      "Error log for file               : c:\\StoredData\\SV record 09.03.2024 13-04-06.txt\r\n"
      "Measurement started              : 09.03.2024 13:04:06\r\n"
      "Measurement stopped              : 09.03.2024 14:05:07\r\n"
      "Duration time of data aquisition : 01:01:01 hh:mm:ss;\r\n"
      "\r\n"
      "MAC adress sender                : 00:50:C2:4F:9A:07\r\n"
      "MAC adress receiver              : 01:0C:CD:04:00:01\r\n"
      "Station ID                       : MU01\r\n"
      "Filter were set to               : and vlan 7 / MU01 / MU02\r\n"
      "\r\n"
      "Count of received samples        : 8000\r\n"
      "Count of lost samples            : 0\r\n"
      "Percentage of captured samples   : 100.0 %\r\n"
      "Longest continous data           : 8000 samples; start: 1, end: 8000; (acc. ~2s)\r\n"
      "Count of received full waves     : 100\r\n");
  EXPECT_THAT(scene.Dialogs.Shown, IsEmpty());
}

TEST(Log, TellsOneLostSampleInTheMiddle) {
  LogScene scene;
  std::vector<std::int32_t> ramp = Ramp(4000);
  for (const std::int32_t value : Ramp(4000, 1)) ramp.push_back(value);
  scene.Recorded(LinesOf(ramp));

  scene.BuildRecordLog();

  EXPECT_EQ(scene.LogLine(11), "Count of received samples        : 8000");
  EXPECT_EQ(scene.LogLine(12), "Count of lost samples            : 1");
  EXPECT_EQ(scene.LogLine(13), "Percentage of captured samples   : 100.0 %");
  EXPECT_EQ(scene.LogLine(14),
            "Longest continous data           : 3999 samples; start: 4001, end: 8000; "
            "(acc. ~0.99975s)");
  EXPECT_EQ(scene.LogLine(15), "Count of received full waves     : 49");
}

TEST(Log, RoundsThePercentageToOnePlace) {
  LogScene scene;
  scene.Recorded(LinesOf({0, 2, 3}));
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(13), "Percentage of captured samples   : 75.0 %");

  scene.Recorded(LinesOf({0, 1, 4}));
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(13), "Percentage of captured samples   : 60.0 %");

  scene.Recorded(LinesOf({0, 1, 2, 3, 5, 6}));
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(13), "Percentage of captured samples   : 85.7 %");
}

TEST(Log, BeginsAnywhereOnTheRamp) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(8000, 2345)));
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(12), "Count of lost samples            : 0");
}

TEST(Log, DividesByTheBaseFrequencyAndKeepsTheEightySamplesOfAWave) {
  LogScene scene;
  scene.Settings.BaseFrequency = 60;
  scene.Recorded(LinesOf(Ramp(4000)));
  scene.BuildRecordLog();
  EXPECT_THAT(scene.LogLine(14), EndsWith("(acc. ~0.833333333333333s)"));
  EXPECT_EQ(scene.LogLine(15), "Count of received full waves     : 50");
}

TEST(Log, UsesTheDecimalCommaOfTheSystem) {
  LogScene scene;
  scene.Numbers = platform::NumberText({',', '.'});
  std::vector<std::int32_t> ramp = Ramp(2000);
  ramp.push_back(2001);
  scene.Recorded(LinesOf(ramp));
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(11), "Count of received samples        : 2001");
  EXPECT_EQ(scene.LogLine(13), "Percentage of captured samples   : 100,0 %");
  EXPECT_THAT(scene.LogLine(14), EndsWith("(acc. ~0,49975s)"));
}

TEST(Log, BeginsTheDurationAnewAfterADay) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(1)));
  scene.Calendar.Present = {2024, 3, 10, 13, 4, 5};
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(4), "Duration time of data aquisition : 23:59:59 hh:mm:ss;");

  scene.Calendar.Present = {2024, 3, 11, 13, 5, 8};
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(3), "Measurement stopped              : 11.03.2024 13:05:08");
  EXPECT_EQ(scene.LogLine(4), "Duration time of data aquisition : 00:01:02 hh:mm:ss;");
}

TEST(Log, ReplacesAnOlderOne) {
  LogScene scene;
  scene.Files.Stored[scene.LogPath()] = std::string(5000, 'x');
  scene.Recorded(LinesOf(Ramp(1)));
  scene.BuildRecordLog();
  EXPECT_THAT(scene.Files.Stored[scene.LogPath()], StartsWith("Error log for file"));
  EXPECT_THAT(scene.Files.Stored[scene.LogPath()],
              EndsWith("Count of received full waves     : 0\r\n"));
}

TEST(Log, IsWrittenInTheCodePageOfTheSystem) {
  LogScene scene;
  scene.Settings.FilterContent = {"Abzweig \xC3\xA4", "\xE2\x82\xAC"};
  scene.LastFrame(SvFrame("\xC4\x80").Bytes());
  scene.Recorded(LinesOf(Ramp(1)));
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(8), "Station ID                       : \xC4\x80");
  EXPECT_EQ(scene.LogLine(9),
            "Filter were set to               : and vlan 7 / Abzweig \xE4 / \x80");
}

TEST(Log, WritesADateInDigitsWhereTheCodePageLacksAPartOfIt) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(1)));
  // A word of some systems' dates that the code page has, and one that it lacks.
  scene.Calendar.BehindDates = " \xC3\xA4m";
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(2), "Measurement started              : 09.03.2024 13:04:06 \xE4m");
  EXPECT_EQ(scene.LogLine(3), "Measurement stopped              : 09.03.2024 14:05:07 \xE4m");

  scene.Calendar.BehindDates = " \xD0\xB3.";
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(2), "Measurement started              : 2024-03-09 13:04:06");
  EXPECT_EQ(scene.LogLine(3), "Measurement stopped              : 2024-03-09 14:05:07");
}

TEST(Log, NamesAFileWhosePathIsOutsideTheCodePage) {
  LogScene scene;
  scene.Settings.StoragePath = "c:\\\xE6\xB5\x8B\xE8\xAF\x95 50 %?";
  scene.Settings.FilterContent[1] = "\xD0\x96";
  scene.Files.Folders.insert(scene.Settings.StoragePath);
  const std::string path = scene.Settings.StoragePath + "\\" + scene.RecordFileName;
  scene.Files.Stored[path] = LinesOf(Ramp(1));

  scene.BuildRecordLog();

  const std::string log =
      scene.Files.Stored.at(scene.Settings.StoragePath + "\\Errorlog " + scene.RecordFileName);
  EXPECT_THAT(log, StartsWith("Error log for file               : c:\\<U+6D4B><U+8BD5> 50 %?\\" +
                              scene.RecordFileName + "\r\n"));
  EXPECT_THAT(log,
              HasSubstr("Filter were set to               : and vlan 7 / MU01 / <U+0416>\r\n"));
}

TEST(Log, LeavesTheStationIdAsTheFrameHeldIt) {
  LogScene scene;
  scene.LastFrame(SvFrame("<U+6D4B>\x8F").Bytes());
  scene.Recorded(LinesOf(Ramp(1)));
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(8), "Station ID                       : <U+6D4B>\x8F");
}

TEST(Log, ShowsThePlatformsSeparator) {
  LogScene scene;
  scene.Files.LeaveWindows();
  scene.Files.Folders.insert("/data");
  scene.Settings.StoragePath = "/data";
  scene.Files.Stored["/data/" + scene.RecordFileName] = LinesOf(Ramp(1));
  scene.BuildRecordLog();
  EXPECT_THAT(scene.Files.Stored["/data/Errorlog " + scene.RecordFileName],
              HasSubstr(": /data/SV record 09.03.2024 13-04-06.txt\r\n"));
}

TEST(Log, TakesWhatTheRampFieldBeginsWith) {
  LogScene scene;
  scene.Recorded("0;7;1\r\n1; 8x;1\r\n2;+9;1\r\n3;1e1;1\r\n4;11.4;1\r\n5;;\r\n");
  scene.BuildRecordLog();
  // The last one begins with no number and reads 0: 12 to 3999 are missing.
  EXPECT_EQ(scene.LogLine(11), "Count of received samples        : 6");
  EXPECT_EQ(scene.LogLine(12), "Count of lost samples            : 3988");
}

TEST(Log, RoundsHalvesOfTheRampToTheEvenNumber) {
  LogScene scene;
  scene.Recorded("0;0.5;1\r\n1;1.4;1\r\n2;1.5;1\r\n3;2.5;1\r\n");
  scene.BuildRecordLog();
  // 0, 1, 2, and 2 again, which is 3999 short of its next.
  EXPECT_EQ(scene.LogLine(12), "Count of lost samples            : 3999");
}

TEST(Log, DoesNotCountALastLineWithoutAnEnd) {
  LogScene scene;
  scene.Recorded(LinesOf({0, 1}) + "2;99");
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(11), "Count of received samples        : 2");
  EXPECT_EQ(scene.LogLine(12), "Count of lost samples            : 0");
}

}  // namespace
}  // namespace support
