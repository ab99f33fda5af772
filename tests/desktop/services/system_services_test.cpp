#include <gtest/gtest.h>

#ifdef __linux__
#include <sys/resource.h>

#include <csignal>
#endif

#include <QDir>
#include <QTemporaryDir>
#include <array>
#include <string>

#include "base/failure.h"
#include "desktop/services/qt_file_system.h"
#include "desktop/services/qt_printers.h"
#include "desktop/services/qt_shell_links.h"
#include "support/failures.h"

namespace desktop {
namespace {

using support::FailureOf;

std::string Content(QtFileSystem& files, const std::string& path) {
  const auto file = files.Read(path);
  std::string text;
  std::array<char, 4> piece{};
  while (const std::size_t count = file->Read(piece)) text.append(piece.data(), count);
  return text;
}

TEST(Files, AFolderIsFoundByItsPath) {
  const QTemporaryDir folder;
  const QtFileSystem files;
  EXPECT_TRUE(files.DirectoryExists(folder.path().toStdString()));
  EXPECT_FALSE(files.DirectoryExists(folder.filePath("missing").toStdString()));
}

TEST(Files, AFolderIsMadeWithThoseAboveIt) {
  const QTemporaryDir folder;
  QtFileSystem files;

  files.MakeFolder(folder.filePath("a/b").toStdString());

  EXPECT_TRUE(QDir(folder.filePath("a/b")).exists());
}

TEST(Files, WhatIsAppendedStandsBehindWhatWasThere) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("a.txt").toStdString();
  QtFileSystem files;
  EXPECT_FALSE(files.FileExists(path));
  EXPECT_EQ(files.FileSize(path), 0);

  files.Append(path)->Write("one\r\n");
  files.Append(path)->Write("two");

  EXPECT_TRUE(files.FileExists(path));
  EXPECT_EQ(files.FileSize(path), 8);
  EXPECT_EQ(Content(files, path), "one\r\ntwo");
}

TEST(Files, ANewFileIsEmpty) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("a.txt").toStdString();
  QtFileSystem files;
  files.Create(path)->Write("older and longer");

  files.Create(path)->Write("new");

  EXPECT_EQ(Content(files, path), "new");
}

TEST(Files, AWriteIsOnDiskBeforeTheFileIsClosed) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("a.txt").toStdString();
  QtFileSystem files;
  const auto file = files.Create(path);

  file->Write("at once");

  EXPECT_EQ(files.FileSize(path), 7);
}

TEST(Files, AClosedFileTakesNothingMore) {
  const QTemporaryDir folder;
  QtFileSystem files;
  const auto file = files.Create(folder.filePath("a.txt").toStdString());
  file->Close();

  EXPECT_EQ(FailureOf([&] { file->Write("more"); }), 52);
  EXPECT_EQ(FailureOf([&] { file->Close(); }), 52);
}

TEST(Files, ADeletedFileIsGone) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("a.txt").toStdString();
  QtFileSystem files;
  files.Create(path)->Close();

  files.DeleteFile(path);

  EXPECT_FALSE(files.FileExists(path));
  EXPECT_EQ(FailureOf([&] { files.DeleteFile(path); }), 53);
}

TEST(Files, EachFailureHasTheNumberOfItsReason) {
  const QTemporaryDir folder;
  QtFileSystem files;
  const std::string missing = folder.filePath("missing/a.txt").toStdString();

  EXPECT_EQ(FailureOf([&] { files.Read(missing); }), 53);
  EXPECT_EQ(FailureOf([&] { files.Append(missing); }), 76);
  EXPECT_EQ(FailureOf([&] { files.Create(missing); }), 76);
  EXPECT_EQ(FailureOf([&] { files.Append(folder.path().toStdString()); }), 75);
}

#ifdef Q_OS_LINUX
TEST(Files, AFullDiskIsToldByItsNumber) {
  QtFileSystem files;
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
  const QTemporaryDir folder;
  const std::string path = folder.filePath("record.txt").toStdString();
  QtFileSystem files;
  const SizeLimit limit(1000);
  const auto file = files.Append(path);
  file->Write(std::string(800, 'a'));

  EXPECT_EQ(FailureOf([&] { file->Write(std::string(800, 'b')); }), 61);

  EXPECT_EQ(files.FileSize(path), 1000) << "what fits is there";
}
#endif

#ifndef Q_OS_WIN
TEST(Files, APathWithADriveLiesInTheHome) {
  const QTemporaryDir home;
  qputenv("HOME", home.path().toUtf8());
  const QtFileSystem files;
  EXPECT_EQ(files.Separator(), "/");
  EXPECT_FALSE(files.DirectoryExists("c:\\StoredData\\a"));
  ASSERT_TRUE(QDir(home.path()).mkpath("StoredData/a"));
  EXPECT_TRUE(files.DirectoryExists("c:\\StoredData\\a"));
  EXPECT_EQ(QtFileSystem::Resolve("c:\\StoredData"), home.filePath("StoredData"));
  EXPECT_EQ(QtFileSystem::Resolve("c:\\"), home.path());
  EXPECT_EQ(files.Native("c:\\StoredData"), home.filePath("StoredData").toStdString());
  EXPECT_EQ(files.DefaultFolder(), home.filePath("StoredData").toStdString());
  EXPECT_EQ(QtFileSystem::Resolve("/a/b\\c"), "/a/b\\c");
}
#endif

TEST(PrinterList, WithoutPrintersThePdfFileIsTheChoice) {
  const QtPrinters printers(QStringList{}, QString{});
  EXPECT_EQ(printers.Names(), std::vector<std::string>{QtPrinters::PdfName});
  EXPECT_EQ(printers.Current(), QtPrinters::PdfName);
}

TEST(PrinterList, TheSystemsChoiceComesFirstUntilTheUserChooses) {
  QtPrinters printers({"Office", "Control room"}, "Control room");
  EXPECT_EQ(printers.Current(), "Control room");
  printers.MakeCurrent(2);
  EXPECT_EQ(printers.Current(), QtPrinters::PdfName);
  EXPECT_THROW(printers.MakeCurrent(3), platform::Failure);
}

TEST(Links, AMailsSubjectIsEncoded) {
  EXPECT_EQ(QtShellLinks::Address("mailto:a@b.example?subject=Bay 1 & 2: why?").toEncoded(),
            "mailto:a@b.example?subject=Bay%201%20%26%202%3A%20why%3F");
  EXPECT_EQ(QtShellLinks::Address("https://www.vornik.example/").toString(),
            "https://www.vornik.example/");
  EXPECT_EQ(QtShellLinks::Address("/a b/c.txt").toLocalFile(), "/a b/c.txt");
}

}  // namespace
}  // namespace desktop
