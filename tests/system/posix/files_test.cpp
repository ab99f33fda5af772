#include <gtest/gtest.h>

#ifdef __linux__
#include <sys/resource.h>

#include <csignal>
#endif

#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/failures.h"
#include "support/real_files.h"
#include "system/computer_files.h"
#include "system/places.h"

namespace host {
namespace {

using support::FailureOf;
using support::TemporaryFolder;

#ifdef __linux__
TEST(Files, AFullDiskIsToldByItsNumber) {
  ComputerFiles files;
  const auto file = files.Append("/dev/full");

  EXPECT_EQ(FailureOf([&] { file->Write("a"); }), 61);
}

/// As long as it lives, no file may grow beyond so many bytes.
class SizeLimit {
 public:
  explicit SizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  SizeLimit(const SizeLimit&) = delete;
  SizeLimit& operator=(const SizeLimit&) = delete;
  ~SizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  using Handler = void (*)(int);
  Handler handler_;
  rlimit before_{};
};

TEST(Files, TheLargestFileThatADiskAllowsIsAFullDisk) {
  const TemporaryFolder folder;
  const std::string path = folder.File("record.txt");
  ComputerFiles files;
  const SizeLimit limit(1000);
  const auto file = files.Append(path);
  file->Write(std::string(800, 'a'));

  EXPECT_EQ(FailureOf([&] { file->Write(std::string(800, 'b')); }), 61);

  EXPECT_EQ(files.FileSize(path), 1000) << "what fits is there";
}
#endif

TEST(Files, APathWithADriveLiesInTheHome) {
  const TemporaryFolder home;
  setenv("HOME", home.Path().c_str(), 1);
  const ComputerFiles files;
  EXPECT_EQ(files.Separator(), "/");
  EXPECT_FALSE(files.DirectoryExists("c:\\StoredData\\a"));
  std::filesystem::create_directories(home.File("StoredData/a"));
  EXPECT_TRUE(files.DirectoryExists("c:\\StoredData\\a"));
  EXPECT_EQ(PlaceOf("c:\\StoredData"), home.File("StoredData"));
  EXPECT_EQ(PlaceOf("c:\\"), home.Path());
  EXPECT_EQ(files.Native("c:\\StoredData"), home.File("StoredData"));
  EXPECT_EQ(files.DefaultFolder(), home.File("StoredData"));
  EXPECT_EQ(PlaceOf("/a/b\\c"), "/a/b\\c");
  EXPECT_EQ(PlaceOf("a\\b"), "a/b");
  EXPECT_EQ(PlaceOf("1:\\b"), "1:/b") << "no drive has such a letter";
}

}  // namespace
}  // namespace host
