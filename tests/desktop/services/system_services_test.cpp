#include <gtest/gtest.h>

#include <QDir>
#include <QStandardPaths>
#include <string>

#include "base/failure.h"
#include "desktop/look/text.h"
#include "desktop/services/qt_printers.h"
#include "desktop/services/qt_shell_links.h"
#include "system/places.h"
#include "system/posix/home.h"

namespace desktop {
namespace {

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

TEST(DataFolder, IsThatOfTheDesktop) {
  const QByteArray before = qgetenv("XDG_DATA_HOME");
  for (const char* folder : {"/data/of/the user", "", "relative"}) {
    qputenv("XDG_DATA_HOME", folder);
    EXPECT_EQ(ToQt(host::Utf8(host::DataFolder())),
              QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        << folder;
  }
  if (before.isNull()) {
    qunsetenv("XDG_DATA_HOME");
  } else {
    qputenv("XDG_DATA_HOME", before);
  }
}

TEST(DataFolder, LiesInTheHomeThatTheDesktopKnows) {
  const QByteArray before = qgetenv("HOME");
  for (const char* home : {"/home/user", "/home/user/", "/home/../root", "", "/"}) {
    qputenv("HOME", home);
    EXPECT_EQ(ToQt(host::Utf8(host::Home())), QDir::homePath()) << home;
  }
  qputenv("HOME", before);
}

}  // namespace
}  // namespace desktop
