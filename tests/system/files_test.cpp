#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <set>
#include <string>

#include "support/failures.h"
#include "support/real_files.h"
#include "system/calendar.h"
#include "system/computer_files.h"

namespace host {
namespace {

using support::FailureOf;
using support::TemporaryFolder;

std::string Content(ComputerFiles& files, const std::string& path) {
  const auto file = files.Read(path);
  std::string text;
  std::array<char, 4> piece{};
  while (const std::size_t count = file->Read(piece)) text.append(piece.data(), count);
  return text;
}

TEST(Files, AreMadeAnewByOneAlone) {
  const TemporaryFolder folder;
  ComputerFiles files;
  const std::string path = folder.File("new");
  EXPECT_TRUE(files.MakeNew(path));
  EXPECT_EQ(files.FileSize(path), 0);
  files.Append(path)->Write("first");
  EXPECT_FALSE(files.MakeNew(path));
  EXPECT_EQ(Content(files, path), "first");
  EXPECT_EQ(FailureOf([&] { files.MakeNew(folder.File("away/new")); }),
            platform::failure::PathNotFound);
}

TEST(Files, TellWhatTheirDiskStillTakes) {
  const TemporaryFolder folder;
  const ComputerFiles files;
  const auto room = files.FreeSpace(folder.Path());
  ASSERT_TRUE(room);
  EXPECT_GT(*room, 0);
  EXPECT_LT(*room, std::int64_t{1} << 60);
  EXPECT_FALSE(files.FreeSpace(folder.File("missing")));
}

TEST(Files, AFolderIsFoundByItsPath) {
  const TemporaryFolder folder;
  const ComputerFiles files;
  EXPECT_TRUE(files.DirectoryExists(folder.Path()));
  EXPECT_FALSE(files.DirectoryExists(folder.File("missing")));
}

TEST(Files, AFolderIsMadeWithThoseAboveIt) {
  const TemporaryFolder folder;
  ComputerFiles files;

  files.MakeFolder(folder.File("a/b"));

  EXPECT_TRUE(std::filesystem::is_directory(folder.File("a/b")));
}

TEST(Files, WhatIsAppendedStandsBehindWhatWasThere) {
  const TemporaryFolder folder;
  const std::string path = folder.File("a.txt");
  ComputerFiles files;
  EXPECT_FALSE(files.FileExists(path));
  EXPECT_EQ(files.FileSize(path), 0);

  files.Append(path)->Write("one\r\n");
  files.Append(path)->Write("two");

  EXPECT_TRUE(files.FileExists(path));
  EXPECT_EQ(files.FileSize(path), 8);
  EXPECT_EQ(Content(files, path), "one\r\ntwo");
}

TEST(Files, ANewFileIsEmpty) {
  const TemporaryFolder folder;
  const std::string path = folder.File("a.txt");
  ComputerFiles files;
  files.Create(path)->Write("older and longer");

  files.Create(path)->Write("new");

  EXPECT_EQ(Content(files, path), "new");
}

TEST(Files, WhatIsAmendedStandsOverTheBeginning) {
  const TemporaryFolder folder;
  const std::string path = folder.File("a.txt");
  ComputerFiles files;
  const auto growing = files.Create(path);
  growing->Write("older and ");

  files.Amend(path)->Write("newer");
  growing->Write("longer");

  EXPECT_EQ(Content(files, path), "newer and longer");
  EXPECT_EQ(FailureOf([&] { files.Amend(folder.File("none.txt")); }), 76);
}

TEST(Files, AWriteIsOnDiskBeforeTheFileIsClosed) {
  const TemporaryFolder folder;
  const std::string path = folder.File("a.txt");
  ComputerFiles files;
  const auto file = files.Create(path);

  file->Write("at once");

  EXPECT_EQ(files.FileSize(path), 7);
}

TEST(Files, AClosedFileTakesNothingMore) {
  const TemporaryFolder folder;
  ComputerFiles files;
  const auto file = files.Create(folder.File("a.txt"));
  file->Close();

  EXPECT_EQ(FailureOf([&] { file->Write("more"); }), 52);
  EXPECT_EQ(FailureOf([&] { file->Close(); }), 52);
}

TEST(Files, ADeletedFileIsGone) {
  const TemporaryFolder folder;
  const std::string path = folder.File("a.txt");
  ComputerFiles files;
  files.Create(path)->Close();

  files.DeleteFile(path);

  EXPECT_FALSE(files.FileExists(path));
  EXPECT_EQ(FailureOf([&] { files.DeleteFile(path); }), 53);
}

TEST(Files, AFileTakesTheNameAndThePlaceOfAnother) {
  const TemporaryFolder folder;
  ComputerFiles files;
  files.Create(folder.File("new"))->Write("new");
  files.Create(folder.File("old"))->Write("old");

  files.Rename(folder.File("new"), folder.File("old"));

  EXPECT_FALSE(files.FileExists(folder.File("new")));
  EXPECT_EQ(Content(files, folder.File("old")), "new");
  EXPECT_EQ(FailureOf([&] { files.Rename(folder.File("new"), folder.File("old")); }), 53);
  EXPECT_EQ(FailureOf([&] { files.Rename(folder.File("old"), folder.File("none/old")); }), 76);
}

TEST(Files, AFolderTellsTheNamesInItAndNoneBelow) {
  const TemporaryFolder folder;
  ComputerFiles files;
  files.MakeFolder(folder.File("below"));
  for (const char* name : {"a.txt", "\xC3\xA4.txt", "below/b.txt"}) {
    files.Create(folder.Path() + "/" + name)->Close();
  }
  std::set<std::string> names;
  const auto take = [&](std::string_view name) { names.emplace(name); };

  files.ListNames(folder.Path(), take);
  EXPECT_EQ(names, (std::set<std::string>{"a.txt", "\xC3\xA4.txt", "below"}));

  names.clear();
  files.ListNames(folder.File("missing"), take);
  files.ListNames(folder.File("a.txt"), take);
  EXPECT_TRUE(names.empty());
}

TEST(Files, TheMomentOfTheLastWriteIsOneOfTheCalendar) {
  const TemporaryFolder folder;
  ComputerFiles files;
  const std::string path = folder.File("a.txt");
  const platform::LocalTime before = Calendar().Now();
  files.Create(path)->Write("now");

  const std::int64_t behind = platform::SecondsBetween(before, files.LastWrite(path));
  // The clock of the files goes in coarser steps.
  EXPECT_GE(behind, -1);
  EXPECT_LE(behind, 5);

  const auto hour = std::chrono::hours(1);
  std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) - hour);
  EXPECT_LE(platform::SecondsBetween(before, files.LastWrite(path)), 5 - 3600);
  EXPECT_EQ(FailureOf([&] { files.LastWrite(folder.File("missing")); }), 53);
}

TEST(Files, EachFailureHasTheNumberOfItsReason) {
  const TemporaryFolder folder;
  ComputerFiles files;
  const std::string missing = folder.File("missing/a.txt");

  EXPECT_EQ(FailureOf([&] { files.Read(missing); }), 53);
  EXPECT_EQ(FailureOf([&] { files.Append(missing); }), 76);
  EXPECT_EQ(FailureOf([&] { files.Create(missing); }), 76);
  EXPECT_EQ(FailureOf([&] { files.Append(folder.Path()); }), 75);
}

TEST(Files, APathThatHoldsAZeroIsNoOther) {
  const TemporaryFolder folder;
  ComputerFiles files;
  files.Create(folder.File("a.txt"))->Close();

  EXPECT_FALSE(files.FileExists(folder.File("a.txt") + std::string(1, '\0') + "b"));
}

}  // namespace
}  // namespace host
