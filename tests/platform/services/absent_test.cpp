#include "platform/services/absent.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "support/failures.h"
#include "support/fake_platform.h"

namespace {

using platform::OrNone;
using support::FailureOf;

TEST(AbsentServices, GiveWayToThoseOfTheFace) {
  support::FakePlatform face;
  EXPECT_EQ(&OrNone(&face.Folders), &face.Folders);
  EXPECT_EQ(&OrNone(&face.Printers), &face.Printers);
  EXPECT_EQ(&OrNone(&face.Surface), &face.Surface);
  EXPECT_EQ(&OrNone(&face.Pointer), &face.Pointer);
  EXPECT_EQ(&OrNone(&face.Sleep), &face.Sleep);
}

TEST(AbsentServices, SayThatTheyAreNotThereWhereSomebodyAsks) {
  platform::Printers& printers = OrNone(static_cast<platform::Printers*>(nullptr));
  EXPECT_TRUE(printers.Names().empty());
  EXPECT_EQ(FailureOf([&] { (void)printers.Current(); }), platform::failure::NoPrinter);
  EXPECT_EQ(FailureOf([&] { printers.MakeCurrent(0); }), platform::failure::NoPrinter);

  platform::PrintSurface& paper = OrNone(static_cast<platform::PrintSurface*>(nullptr));
  EXPECT_EQ(FailureOf([&] { paper.Orientation(platform::PageOrientation::Portrait); }),
            platform::failure::NoPrinter);
  paper.Colours(platform::ColourMode::Colour);
  paper.DocumentName("a page");
  paper.FontName("a font");
  paper.FontSize(9);
  paper.FontBold(true);
  paper.FontUnderline(true);
  paper.ForeColor({});
  paper.CurrentX(10);
  paper.CurrentY(10);
  paper.Print("a text");
  paper.PrintLine("a line");
  EXPECT_EQ(paper.TextWidth("a text"), 0);
  EXPECT_EQ(FailureOf([&] { paper.EndDoc({}); }), platform::failure::NoPrinter);

  platform::FolderDialog& folders = OrNone(static_cast<platform::FolderDialog*>(nullptr));
  EXPECT_FALSE(folders.Browse("Where?", "c:\\StoredData"));
}

}  // namespace
