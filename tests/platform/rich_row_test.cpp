#include "platform/rich_row.h"

#include <gmock/gmock.h>

#include <array>
#include <iterator>
#include <string_view>

#include "base/failure.h"
#include "support/failures.h"

namespace {

using platform::RowPlace;
using platform::ShowRow;
using platform::ShowRows;
using platform::TakesPlace;

constexpr RowPlace First{.Left = 600, .Top = 1300, .Width = 14000};

TEST(RichRow, TakesItsPlaceFontAndTextFromItsLine) {
  platform::Label row;
  row.Visible = false;

  ShowRow(row,
          "Courier New|8.25|fettunderline|Complete packet:", {.Left = 5, .Top = 6, .Width = 7});

  EXPECT_EQ(row.Left, 5);
  EXPECT_EQ(row.Top, 6);
  EXPECT_EQ(row.Width, 7);
  EXPECT_EQ(row.FontName, "Courier New");
  EXPECT_FLOAT_EQ(row.FontSize, 8.25F);
  EXPECT_TRUE(row.FontBold);
  EXPECT_TRUE(row.FontUnderline);
  EXPECT_EQ(row.Caption, "Complete packet:");
  EXPECT_TRUE(row.Visible);
}

TEST(RichRow, LosesTheStyleThatItHadBefore) {
  platform::Label row;
  row.FontBold = true;
  row.FontUnderline = true;

  ShowRow(row, "Verdana|10|normal|ID:", First);

  EXPECT_FALSE(row.FontBold);
  EXPECT_FALSE(row.FontUnderline);
}

TEST(RichRow, OfABlankShowsNothing) {
  platform::Label row;

  ShowRow(row, "Courier New|10|normal| ", First);

  EXPECT_FALSE(row.Visible);
  EXPECT_EQ(row.FontName, "Courier New");
  EXPECT_EQ(row.Top, 1300);
}

TEST(RichRow, TakesAPlaceUnlessNothingStandsBehindItsLastBar) {
  EXPECT_TRUE(TakesPlace("Verdana|10|normal|x"));
  EXPECT_TRUE(TakesPlace("Verdana|10|normal| "));
  EXPECT_FALSE(TakesPlace("Verdana|10|normal|"));
  EXPECT_FALSE(TakesPlace("Verdana|10|normal|x|"));
  EXPECT_FALSE(TakesPlace(""));
}

TEST(RichRows, StandOneBelowTheOtherAndCloseUpOverLinesWithoutAPlace) {
  std::array<platform::Label, 6> rows;
  const std::string_view lines[] = {"Verdana|18|fett|Vornik", "",
                                    "Verdana|10|normal|",     "Verdana|10|normal| ",
                                    "Verdana|10|normal|x",    "Verdana|10|fett|y"};
  static_assert(std::size(lines) == std::tuple_size_v<decltype(rows)>);

  ShowRows(rows, lines, First);

  EXPECT_EQ(rows[0].Top, 1300);
  EXPECT_EQ(rows[3].Top, 1600);
  EXPECT_EQ(rows[4].Top, 1900);
  EXPECT_EQ(rows[5].Top, 2200);
  for (const std::size_t row : {0U, 3U, 4U, 5U}) {
    EXPECT_EQ(rows[row].Left, 600) << row;
    EXPECT_EQ(rows[row].Width, 14000) << row;
  }
  EXPECT_EQ(rows[4].Caption, "x");
  EXPECT_EQ(rows[5].Caption, "y");
}

TEST(RichRows, LeaveARowWithoutAPlaceAlone) {
  std::array<platform::Label, 2> rows;
  for (platform::Label& row : rows) {
    row.Caption = "before";
    row.Top = 77;
  }
  const std::string_view lines[] = {"", "Verdana|10|normal|"};

  ShowRows(rows, lines, First);

  for (const platform::Label& row : rows) {
    EXPECT_EQ(row.Caption, "before");
    EXPECT_EQ(row.Top, 77);
  }
}

TEST(RichRows, WithALineOfTooFewBarsFail) {
  std::array<platform::Label, 1> rows;
  const std::string_view lines[] = {"Verdana|10|x"};

  EXPECT_EQ(support::FailureOf([&] { ShowRows(rows, lines, First); }),
            platform::failure::InvalidProcedureCall);
}

}  // namespace
