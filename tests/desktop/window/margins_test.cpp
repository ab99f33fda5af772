#include <QTabBar>
#include <set>

#include "desktop/look/casing.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/logo_view.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// What the window leaves free at its edges, measured from the painted pixels.
class Margins : public WindowScene, public testing::WithParamInterface<QSize> {
 protected:
  void StartAtSize() {
    Start();
    ResizeFrame(GetParam());
    QTest::qWait(50);
  }
  QImage Shown(int tab) {
    ClickTab(tab);
    QTest::qWait(50);
    return program_->Window().grab().toImage();
  }
  QRect PlaceOf(const QString& name) {
    auto& widget = Find<QWidget>(name);
    return {widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()};
  }
  /// The last column of an area of a picture that holds more than its ground.
  static int InkEnd(const QImage& picture, const QRect& area) {
    const QRect seen = area.intersected(picture.rect());
    for (int x = seen.right(); x >= seen.left(); --x) {
      for (int y = seen.top(); y <= seen.bottom(); ++y) {
        if (look::Contrast(picture.pixelColor(x, y), look::Page) > 1.5) return x;
      }
    }
    return -1;
  }
};

TEST_P(Margins, AreOneNumberOnTheCardsOfFourPages) {
  StartAtSize();
  const int margin = look::Scaled(look::PageMargin);
  const int strip = Find<QWidget>("TabStrip1").height();
  for (const int tab :
       {forms::tab::Info, forms::tab::Recorder, forms::tab::Report, forms::tab::Setup}) {
    const QImage picture = Shown(tab);
    // In the height of the first card, below its rounded corner.
    const int y = strip + margin + look::Scaled(30);
    const auto isGround = [&](int x) { return picture.pixelColor(x, y) == look::Page; };
    int left = 0;
    while (isGround(left)) ++left;
    int right = 0;
    while (isGround(picture.width() - 1 - right)) ++right;
    EXPECT_NEAR(left, margin, 1) << tab;
    EXPECT_NEAR(right, margin, 1) << tab;
    int top = strip;
    while (picture.pixelColor(margin + look::Scaled(40), top) == look::Page) ++top;
    EXPECT_NEAR(top - strip, margin, 1) << tab;
  }
}

TEST_P(Margins, TheLinksAndTheLogoEndAtOneLine) {
  StartAtSize();
  const QImage picture = Shown(forms::tab::Info);
  std::set<int> ends;
  for (const char* name : {"Label3(0)", "Label4", "Picture4"}) {
    const int end = InkEnd(picture, PlaceOf(name).adjusted(0, 0, 4, 0));
    EXPECT_GT(end, 0) << name;
    ends.insert(end);
  }
  EXPECT_LE(*ends.rbegin() - *ends.begin(), look::Scaled(2));
  const int ruled = static_cast<int>(0.97 * GetParam().width());
  EXPECT_NEAR(*ends.rbegin(), ruled, look::Scaled(2));
}

TEST_P(Margins, TheLogosOfThePagesEndAtOneLine) {
  StartAtSize();
  std::set<int> ends;
  for (const auto& [tab, logo] : {std::pair{forms::tab::Recorder, "Picture1(1)"},
                                  {forms::tab::Report, "Picture1(2)"},
                                  {forms::tab::Setup, "Picture1(3)"}}) {
    const QRect place = (ClickTab(tab), QTest::qWait(50), PlaceOf(logo));
    const int end = InkEnd(Shown(tab), place.adjusted(0, 0, 4, 0));
    EXPECT_NEAR(end, place.right(), look::Scaled(1)) << logo;
    ends.insert(end);
  }
  EXPECT_EQ(ends.size(), 1U);
}

TEST_P(Margins, NoStripShowsLeftOfTheFirstTab) {
  StartAtSize();
  const QImage picture = Shown(forms::tab::Info);
  const int strip = Find<QWidget>("TabStrip1").height();
  for (int y = strip / 2; y < strip; ++y) EXPECT_EQ(picture.pixelColor(0, y), look::Page) << y;
}

TEST_P(Margins, TheStatusTextsAreNoneOfTheSmallest) {
  StartAtSize();
  for (int panel = 1; panel <= 4; ++panel) {
    EXPECT_EQ(Find<QLabel>(Member("StatusBar1.Panels", panel)).fontInfo().pixelSize(),
              look::Scaled(look::TextSize));
  }
}

TEST_P(Margins, AnEmptyPanelGivesItsShareAway) {
  StartAtSize();
  const auto widths = [&] {
    std::vector<int> all;
    for (int panel = 1; panel <= 4; ++panel) {
      all.push_back(Find<QWidget>(Member("StatusBar1.Panels", panel)).width());
    }
    return all;
  };
  const std::vector<int> empty = widths();
  EXPECT_LE(empty[3], look::Scaled(20));
  Form().StatusBar1.Panels[3].Text = std::string("12 errors");
  ASSERT_TRUE(WaitFor([&] { return widths()[3] > look::Scaled(100); }));
  for (int panel = 0; panel < 3; ++panel) EXPECT_LT(widths()[panel], empty[panel]) << panel;
  Form().StatusBar1.Panels[3].Text = std::string();
  EXPECT_TRUE(WaitFor([&] { return widths() == empty; }));
}

INSTANTIATE_TEST_SUITE_P(OfTheWindow, Margins,
                         testing::Values(QSize(1024, 768), QSize(1366, 768), QSize(1920, 1080),
                                         QSize(2560, 1440), QSize(3840, 2160)),
                         NameOfSize);

}  // namespace
}  // namespace desktop
