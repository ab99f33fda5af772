#include <QApplication>
#include <QImage>
#include <QPalette>

#include "desktop/look/look.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// The window on a desktop whose colours are dark.
class DarkDesktop : public WindowScene {
 protected:
  DarkDesktop() {
    QApplication::setPalette(QPalette(QColor(40, 40, 44), QColor(20, 20, 24)));
    look::Apply(*qApp);
  }
  /// The mean lightness of a page, from 0 to 255.
  double Lightness() {
    const QImage page = program_->Window().grab().toImage().scaled(32, 24, Qt::IgnoreAspectRatio,
                                                                   Qt::SmoothTransformation);
    double sum = 0;
    for (int y = 0; y < page.height(); ++y) {
      for (int x = 0; x < page.width(); ++x) sum += page.pixelColor(x, y).lightness();
    }
    return sum / (page.width() * page.height());
  }
};

TEST_F(DarkDesktop, LeavesEveryPageLight) {
  Start();
  for (int tab = forms::tab::Info; tab < forms::tab::Exit; ++tab) {
    ClickTab(tab);
    QTest::qWait(20);
    EXPECT_GT(Lightness(), 215) << tab;
  }
}

TEST_F(DarkDesktop, LeavesEveryTextDarkOnItsLightGround) {
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    const QPalette palette = QApplication::palette();
    for (const auto& [text, ground] : {std::pair(QPalette::WindowText, QPalette::Window),
                                       std::pair(QPalette::Text, QPalette::Base),
                                       std::pair(QPalette::ButtonText, QPalette::Button),
                                       std::pair(QPalette::ToolTipText, QPalette::ToolTipBase)}) {
      EXPECT_LT(palette.color(group, text).lightness(), 100) << text;
      EXPECT_GT(palette.color(group, ground).lightness(), 200) << ground;
    }
  }
}

}  // namespace
}  // namespace desktop
