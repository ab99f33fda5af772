#include <QApplication>
#include <QImage>
#include <algorithm>

#include "desktop/look/casing.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// The way of the keyboard through the pages.
class Focus : public WindowScene, public testing::WithParamInterface<QSize> {
 protected:
  static constexpr int MostStops = 60;

  void StartWithStations() {
    Start();
    Form().Text1[12].Text = "VORNIK-SIM-1";
    Form().Text1[14].Text = "VORNIK-SIM-2";
    ResizeFrame(GetParam());
  }
  /// What of the page the focus stops at, from the strip of tabs on.
  std::vector<QWidget*> Stops(int tab) {
    ClickTab(tab);
    QTest::qWait(20);
    auto& strip = Find<QWidget>("TabStrip1");
    strip.setFocus();
    std::vector<QWidget*> stops;
    for (int i = 0; i < MostStops; ++i) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QWidget* now = QApplication::focusWidget();
      if (now == nullptr || now == &strip) return stops;
      stops.push_back(now);
    }
    ADD_FAILURE() << "the focus does not come round on tab " << tab;
    return stops;
  }
  QImage PictureRound(const QWidget& widget) {
    QWidget& window = program_->Window();
    const QRect place(widget.mapTo(&window, QPoint(0, 0)), widget.size());
    return window.grab(place.adjusted(-2, -2, 2, 2)).toImage();
  }
};

/// How many pixels of a picture change to something that stands out from what was there.
int Marked(const QImage& before, const QImage& after) {
  constexpr double Least = 1.5;
  int marked = 0;
  for (int y = 0; y < before.height(); ++y) {
    for (int x = 0; x < before.width(); ++x) {
      const QColor was = before.pixelColor(x, y);
      const QColor is = after.pixelColor(x, y);
      if (was != is && look::Contrast(was, is) >= Least) ++marked;
    }
  }
  return marked;
}

TEST_P(Focus, IsSeenOnEveryControl) {
  StartWithStations();
  for (int tab = forms::tab::Info; tab < forms::tab::Exit; ++tab) {
    const std::vector<QWidget*> stops = Stops(tab);
    EXPECT_FALSE(stops.empty()) << tab;
    for (QWidget* stop : stops) {
      Find<QWidget>("TabStrip1").setFocus();
      const QImage without = PictureRound(*stop);
      stop->setFocus(Qt::TabFocusReason);
      const QImage with = PictureRound(*stop);
      ASSERT_EQ(without.size(), with.size());
      // A mark as long as the shorter side at least.
      EXPECT_GE(Marked(without, with), std::min(stop->width(), stop->height()))
          << stop->objectName().toStdString() << " on tab " << tab;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(OfTheWindow, Focus, testing::Values(QSize(1024, 768), QSize(2560, 1440)),
                         NameOfSize);

}  // namespace
}  // namespace desktop
