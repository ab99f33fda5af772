#include <gmock/gmock.h>

#include <new>

#include "report/analysis_bench.h"
#include "support/sv_frame.h"

namespace {

using support::SvFrame;

/// A row that cannot be written, as the window may have it.
class ReportFailure : public report_tests::Analysis {
 protected:
  void FailAtTheSampleCount(std::int32_t number) {
    main.Label8[8].Caption.Observe([number] { throw platform::Failure(number); });
  }
};

TEST_F(ReportFailure, OfARowThatTheFormHasNotGoesOnWithTheNextStatement) {
  FailAtTheSampleCount(340);

  EXPECT_EQ(Analyse(SvFrame("MU01").Bytes()), "MU01");

  EXPECT_TRUE(platform_.Dialogs.Shown.empty());
  EXPECT_TRUE(Row(9).starts_with("value=")) << Row(9);
  EXPECT_TRUE(Row(22).starts_with("90: "));
}

TEST_F(ReportFailure, OfAnyOtherKindEndsTheProgramWithItsBox) {
  FailAtTheSampleCount(9);

  EXPECT_THROW(Analyse(SvFrame("MU01").Bytes()), support::SceneEnded);

  ASSERT_EQ(platform_.Dialogs.Shown.size(), 1U);
  const platform::Message& box = platform_.Dialogs.Shown[0];
  EXPECT_EQ(box.Title, "unknown...");
  EXPECT_EQ(box.BoxIcon, platform::Icon::Critical);
  EXPECT_EQ(box.Text, "unknown error. \r\n" + platform::Failure(9).Text() +
                          "\r\nthis happens while generating a report-analyse");
}

TEST_F(ReportFailure, OfMemoryThatRunsOutEndsTheProgramToo) {
  main.Label8[1].Caption.Observe([] { throw std::bad_alloc(); });

  EXPECT_THROW(Analyse(SvFrame("MU01").Bytes()), support::SceneEnded);

  EXPECT_EQ(platform_.Dialogs.Shown.size(), 1U);
}

}  // namespace
