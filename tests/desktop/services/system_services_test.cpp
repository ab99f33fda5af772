#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "desktop/services/qt_file_system.h"
#include "desktop/services/qt_printers.h"
#include "desktop/services/qt_shell_links.h"
#include "platform/failure.h"

namespace desktop {
namespace {

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
