#include "system/places.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/real_files.h"
#include "system/command_line.h"
#include "system/computer_files.h"

namespace host {
namespace {

TEST(Places, AreWrittenWithTheSystemsSeparator) {
  const ComputerFiles files;
  EXPECT_EQ(files.Separator(), "\\");
  EXPECT_EQ(files.DefaultFolder(), "c:\\StoredData");
  EXPECT_EQ(files.Native("c:/data/of the bus"), "c:\\data\\of the bus");
  EXPECT_EQ(PlaceOf("c:\\StoredData"), std::filesystem::path(L"c:\\StoredData"));
}

TEST(Places, KeepLettersOfAnyLanguage) {
  const support::TemporaryFolder folder;
  ComputerFiles files;
  const std::string path = folder.Path() + "\\Schaltanlage \xC3\x84\xE2\x82\xAC \xE5\xA4\xA9.txt";

  files.Create(path)->Write("ring");

  EXPECT_EQ(files.FileSize(path), 4);
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(folder.Path()) /
                                      L"Schaltanlage \u00C4\u20AC \u5929.txt"));
}

TEST(Places, OfTheUsersProgramsAreTold) {
  _wputenv(L"LOCALAPPDATA=c:\\users\\\u00C4");
  EXPECT_EQ(Utf8(DataFolder()), "c:\\users\\\xC3\x84");
  _wputenv(L"LOCALAPPDATA=");
  EXPECT_TRUE(DataFolder().empty());
}

TEST(Places, WhatIsWrittenIsNotTouched) {
  const support::TemporaryFolder folder;
  ComputerFiles files;
  const std::string path = folder.Path() + "\\a.txt";

  files.Create(path)->Write("one\ntwo\r\n\x1A");

  EXPECT_EQ(support::BytesOf(path), "one\ntwo\r\n\x1A");
}

TEST(CommandLine, HasTheNameOfTheProgramFirst) {
  EXPECT_NE(Words(0, nullptr).front().find("test_system"), std::string::npos);
}

}  // namespace
}  // namespace host
