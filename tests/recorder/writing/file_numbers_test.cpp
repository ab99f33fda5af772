#include "recorder/writing/file_numbers.h"

#include <gtest/gtest.h>

#include "support/failing_files.h"
#include "support/failures.h"
#include "support/fake_services.h"

namespace {

using packetroutines::TextFile;
using support::FailureOf;

class FileNumbers : public testing::Test {
 protected:
  support::FakeFiles disk;
  support::FailingFiles files{disk};
  packetroutines::FileNumbers numbers{files};
  const std::string path = "c:\\StoredData\\a.txt";
};

TEST_F(FileNumbers, AreWrittenUnderAndClosed) {
  numbers.OpenToAppend(TextFile, path);
  numbers.Write(TextFile, "one");
  numbers.Close(TextFile);
  numbers.OpenToAppend(TextFile, path);
  numbers.Write(TextFile, "two");
  EXPECT_EQ(disk.Stored[path], "onetwo");
  numbers.Close(TextFile);
  numbers.OpenAnew(TextFile, path);
  EXPECT_EQ(disk.Stored[path], "");
}

TEST_F(FileNumbers, ThatAreTakenOpenNothingElse) {
  numbers.OpenToAppend(TextFile, path);
  EXPECT_EQ(FailureOf([&] { numbers.OpenToAppend(TextFile, path); }), 55);
  EXPECT_EQ(FailureOf([&] { numbers.OpenAnew(TextFile, path); }), 55);
}

TEST_F(FileNumbers, StayFreeWhereTheOpeningFailed) {
  EXPECT_EQ(FailureOf([&] { numbers.OpenToAppend(TextFile, "d:\\missing\\a.txt"); }), 76);
  EXPECT_FALSE(numbers.IsOpen(TextFile));
}

TEST_F(FileNumbers, ThatAreFreeTakeNothing) {
  EXPECT_EQ(FailureOf([&] { numbers.Write(TextFile, "a"); }), 52);
  EXPECT_EQ(FailureOf([&] { numbers.Close(TextFile); }), 0);
}

TEST_F(FileNumbers, AreFreeBehindAClosingThatFailed) {
  files.FailingClose = 1;
  numbers.OpenToAppend(TextFile, path);
  EXPECT_EQ(FailureOf([&] { numbers.Close(TextFile); }), 61);
  EXPECT_FALSE(numbers.IsOpen(TextFile));
}

TEST_F(FileNumbers, ToComeLeaveTheTextFilesOneFree) {
  EXPECT_EQ(numbers.Next(), 2);
  EXPECT_EQ(numbers.Next(), 3);
  EXPECT_FALSE(numbers.IsOpen(TextFile));
}

TEST_F(FileNumbers, ComeBackAsLateAsPossible) {
  numbers.OpenAnew(numbers.Next(), path);
  numbers.Close(2);
  std::int16_t last = 2;
  for (int i = 0; i < 509; ++i) last = numbers.Next();
  EXPECT_EQ(last, 511);
  EXPECT_EQ(numbers.Next(), 2);
}

TEST_F(FileNumbers, PassOverThoseThatAreOpen) {
  numbers.OpenAnew(2, path);
  EXPECT_EQ(numbers.Next(), 3);
}

TEST_F(FileNumbers, AreUsedUpAtLast) {
  for (std::int16_t number = 2; number <= 511; ++number) {
    numbers.OpenAnew(number, path + std::to_string(number));
  }
  EXPECT_EQ(FailureOf([&] { numbers.Next(); }), 67);
}

TEST_F(FileNumbers, AreAllClosedTogetherWhateverFails) {
  numbers.OpenAnew(TextFile, path);
  numbers.OpenAnew(numbers.Next(), path + "2");
  files.FailingClose = 1;
  numbers.CloseAll();
  EXPECT_FALSE(numbers.IsOpen(TextFile));
  EXPECT_FALSE(numbers.IsOpen(2));
  EXPECT_EQ(files.Closes, 2);
}

}  // namespace
