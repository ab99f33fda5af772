#include "shell/history.h"

#include <gtest/gtest.h>

namespace {

using history::HistoryText;

TEST(History, EndsEachLineWithALineBreak) {
  const std::string_view lines[] = {"Vornik 1.0, 2026-01-02", "- the first one"};

  EXPECT_EQ(HistoryText(lines), "Vornik 1.0, 2026-01-02\r\n- the first one\r\n");
}

TEST(History, LeavesEmptyLinesOut) {
  const std::string_view lines[] = {"", "one", "", "", "two", " ", ""};

  EXPECT_EQ(HistoryText(lines), "one\r\ntwo\r\n \r\n");
}

TEST(History, OfNoLinesIsEmpty) {
  EXPECT_EQ(HistoryText({}), "");
}

TEST(History, OfTheProgramBeginsWithItsLatestRevision) {
  EXPECT_TRUE(HistoryText().starts_with("Vornik 2.3.5, "));
}

}  // namespace
