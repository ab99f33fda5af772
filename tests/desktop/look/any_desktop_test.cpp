#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QToolTip>
#include <memory>

#include "desktop/look/casing.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/choice_box.h"
#include "fit_check.h"
#include "window/dialog_scene.h"

namespace desktop {
namespace {

/// Kinds of widgets that a desktop gives fonts and colours of their own.
constexpr const char* Kinds[] = {"QMenu",       "QLabel",    "QMessageBox", "QTipLabel",
                                 "QHeaderView", "QComboBox", "QListView",   "QPushButton"};

/// The window on a desktop of another kind than the program is designed for. What a desktop gives
/// the toolkit is given here, in its place.
class AnyDesktop : public DialogScene {
 protected:
  ~AnyDesktop() override { look::Apply(*qApp); }

  static void GiveFont(int points) {
    const QFont font(QStringLiteral("DejaVu Serif"), points);
    QApplication::setFont(font);
    for (const char* kind : Kinds) QApplication::setFont(font, kind);
  }
  static void GiveDarkColours() {
    QPalette dark(QColor(40, 40, 44), QColor(20, 20, 24));
    dark.setColor(QPalette::ToolTipBase, QColor(20, 20, 24));
    dark.setColor(QPalette::ToolTipText, Qt::white);
    QApplication::setPalette(dark);
    for (const char* kind : Kinds) QApplication::setPalette(dark, kind);
    QToolTip::setPalette(dark);
  }
  static void ReadFromTheRight() {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    look::Apply(*qApp);
  }

  /// All that opens for a while: a list, a menu, a tip.
  void InEachPopup(const std::function<void(const std::string&, QWidget&)>& work) {
    ClickTab(forms::tab::Setup);
    auto& list = Find<ChoiceBox>("Combo3");
    list.showPopup();
    QTest::qWait(50);
    work("list", *list.view()->window());
    list.hidePopup();
    const std::unique_ptr<QMenu> menu(Find<QLineEdit>("Text1(0)").createStandardContextMenu());
    menu->popup({0, 0});
    work("menu", *menu);
    QToolTip::showText({100, 100}, "a tip", &list);
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->inherits("QTipLabel")) work("tip", *window);
    }
    QToolTip::hideText();
  }
  void ExpectNoMisfits(const std::string& where, QWidget& window) {
    for (const QString& misfit : tour::Misfits(window)) {
      ADD_FAILURE() << where << ": " << misfit.toStdString();
    }
  }
  void ExpectNoMisfitsOnPages() {
    for (int tab = forms::tab::Info; tab < forms::tab::Exit; ++tab) {
      ClickTab(tab);
      QTest::qWait(30);
      ExpectNoMisfits("tab " + std::to_string(tab), program_->Window());
    }
  }
};

QList<QWidget*> WithParts(QWidget& window) {
  QList<QWidget*> all = window.findChildren<QWidget*>();
  all << &window;
  return all;
}

/// The mean lightness of a window, from 0 to 255.
double Lightness(QWidget& window) {
  const QImage picture =
      window.grab().toImage().scaled(32, 24, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  double sum = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) sum += picture.pixelColor(x, y).lightness();
  }
  return sum / (picture.width() * picture.height());
}

/// The best contrast between the most frequent colour of a window and another of its colours.
double BestContrast(QWidget& window) {
  const QImage picture = window.grab().toImage();
  QHash<QRgb, int> counts;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
  }
  QRgb ground = 0;
  for (const QRgb colour : counts.keys()) {
    if (counts[colour] > counts.value(ground)) ground = colour;
  }
  double best = 1;
  for (const QRgb colour : counts.keys()) {
    best = std::max(best, look::Contrast(QColor(colour), QColor(ground)));
  }
  return best;
}

TEST_F(AnyDesktop, OfDarkColoursLeavesWhatOpensLightAndItsTextsDark) {
  GiveDarkColours();
  look::Apply(*qApp);
  StartOn("usual", {1024, 768});
  const auto expectLight = [](const std::string& name, QWidget& window) {
    EXPECT_GT(Lightness(window), 180) << name;
    EXPECT_GE(BestContrast(window), 4.5) << name;
    for (QWidget* part : window.findChildren<QWidget*>()) {
      if (!part->isVisible()) continue;
      const QPalette colours = part->palette();
      EXPECT_LT(colours.color(part->foregroundRole()).lightness(), 130)
          << name << ": " << part->metaObject()->className();
      EXPECT_GT(colours.color(part->backgroundRole()).lightness(), 180)
          << name << ": " << part->metaObject()->className();
    }
  };
  InEach(expectLight);
  InEachPopup(expectLight);
}

TEST_F(AnyDesktop, OfSmallOrLargeLettersLeavesTheSizesOfTheDesign) {
  for (const int points : {8, 16}) {
    GiveFont(points);
    look::Apply(*qApp);
    StartOn("usual", {1024, 768});
    ExpectNoMisfitsOnPages();
    const auto expectUsual = [points](const std::string& name, QWidget& window) {
      for (QWidget* part : WithParts(window)) {
        if (!part->isVisible()) continue;
        EXPECT_EQ(part->fontInfo().family(), QApplication::font().family())
            << points << ", " << name << ": " << part->metaObject()->className();
        EXPECT_LE(part->fontInfo().pixelSize(), look::HeadingSize + 2) << points << ", " << name;
        EXPECT_GE(part->fontInfo().pixelSize(), look::TextSize) << points << ", " << name;
      }
    };
    InMessageBox({"", "Done.", platform::Icon::Information}, std::bind_front(expectUsual, "box"));
    InFinder(std::bind_front(expectUsual, "finder"));
    InFolderDialog(std::bind_front(expectUsual, "folders"));
    InEachPopup(expectUsual);
    program_.reset();
  }
}

TEST_F(AnyDesktop, ThatChangesWhileTheProgramRunsChangesNothingOfIt) {
  StartOn("large", {3840, 2160});
  const QFont usual = QApplication::font();
  GiveFont(16);
  GiveDarkColours();
  QEvent change(QEvent::ThemeChange);
  QCoreApplication::sendEvent(program_->Window().windowHandle(), &change);
  EXPECT_EQ(QApplication::font(), usual);
  InEachPopup([&](const std::string& name, QWidget& window) {
    EXPECT_GT(Lightness(window), 180) << name;
    EXPECT_EQ(window.fontInfo().pixelSize(), look::Scaled(look::TextSize)) << name;
  });
}

TEST_F(AnyDesktop, ThatReadsFromTheRightLeavesTheProgramToReadFromTheLeft) {
  ReadFromTheRight();
  StartOn("usual", {1024, 768});
  ExpectNoMisfitsOnPages();
  ClickTab(forms::tab::Values);
  const auto left = [this](const char* name) {
    return Find<QWidget>(name).mapTo(&program_->Window(), QPoint(0, 0)).x();
  };
  EXPECT_LT(left("Label5(0)"), left("Label5(4)"));
  EXPECT_LT(left("TabStrip1"), 100);
  InEach([&](const std::string& name, QWidget& window) {
    for (const QWidget* part : WithParts(window)) {
      EXPECT_EQ(part->layoutDirection(), Qt::LeftToRight)
          << name << ": " << part->metaObject()->className();
    }
  });
}

TEST_F(AnyDesktop, OnAScreenOfPortraitFormShowsEveryPageWhole) {
  StartOn("portrait", {1080, 1880});
  ExpectNoMisfitsOnPages();
}

TEST_F(AnyDesktop, OnALowScreenShowsEveryPageWhole) {
  StartOn("low", {1366, 768});
  ExpectNoMisfitsOnPages();
}

}  // namespace
}  // namespace desktop
