// What the system's errors are to the program.

#include "system/error_number.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace host {
namespace {

constexpr std::int32_t Missing = 53;

TEST(ErrorNumber, OfWhatIsMissingIsWhatTheCallerTellsOfIt) {
  for (const int error : {ENOENT, ENOTDIR}) {
    EXPECT_EQ(FailureNumber(error, Missing), Missing);
    EXPECT_EQ(FailureNumber(error, 76), 76);
  }
}

TEST(ErrorNumber, TellsFullDisksMissingRightsAndTooManyFilesApart) {
  for (const int error : {ENOSPC, EFBIG}) EXPECT_EQ(FailureNumber(error, Missing), 61);
#ifdef EDQUOT
  EXPECT_EQ(FailureNumber(EDQUOT, Missing), 61);
#endif
  for (const int error : {EACCES, EPERM, EROFS, EBUSY}) {
    EXPECT_EQ(FailureNumber(error, Missing), 70);
  }
  EXPECT_EQ(FailureNumber(EISDIR, Missing), 75);
  for (const int error : {EMFILE, ENFILE}) EXPECT_EQ(FailureNumber(error, Missing), 67);
  for (const int error : {EBADF, ENAMETOOLONG}) EXPECT_EQ(FailureNumber(error, Missing), 52);
}

TEST(ErrorNumber, OfAnythingElseIsThatOfADevice) {
  EXPECT_EQ(FailureNumber(EIO, Missing), 57);
  EXPECT_EQ(FailureNumber(EPIPE, Missing), 57);
}

}  // namespace
}  // namespace host
