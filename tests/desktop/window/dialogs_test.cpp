#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "fit_check.h"
#include "window/dialog_scene.h"

namespace desktop {
namespace {

/// A screen, and a window on it.
struct Place {
  const char* Screen;
  QSize Window;
};

void PrintTo(const Place& place, std::ostream* out) {
  *out << place.Screen << " " << place.Window.width() << "x" << place.Window.height();
}

/// The windows that open in front of the main one, where it has this place.
class Dialogs : public DialogScene, public testing::WithParamInterface<Place> {
 protected:
  void StartThere() { StartOn(QString::fromLatin1(GetParam().Screen), GetParam().Window); }

  /// How many entries a list shows whole.
  static int WholeRows(const QListWidget& list) {
    return list.viewport()->height() / list.sizeHintForRow(0);
  }
};

TEST_P(Dialogs, ShowAllOfThemselvesWithinTheScreen) {
  StartThere();
  const QSize room = program_->Window().screen()->availableSize();
  InEach([&](const std::string& name, QWidget& window) {
    EXPECT_LE(window.frameGeometry().width(), room.width()) << name;
    EXPECT_LE(window.frameGeometry().height(), room.height()) << name;
    // The parts of the folder dialog are the toolkit's own.
    if (qobject_cast<QFileDialog*>(&window) != nullptr) return;
    for (const QString& misfit : tour::Misfits(window)) {
      ADD_FAILURE() << name << ": " << misfit.toStdString();
    }
  });
}

TEST_P(Dialogs, StandInTheFactorOfTheWindow) {
  StartThere();
  InEach([](const std::string& name, QWidget& window) {
    for (const auto* label : window.findChildren<QLabel*>()) {
      const QPixmap sign = label->pixmap();
      if (!sign.isNull()) {
        EXPECT_EQ(sign.deviceIndependentSize().width(), look::Scaled(40)) << name;
      }
      if (!label->isVisible() || label->text().isEmpty()) continue;
      EXPECT_GE(label->fontInfo().pixelSize(), look::Scaled(look::TextSize))
          << name << ": " << label->text().toStdString();
      EXPECT_LE(label->fontInfo().pixelSize(), look::Scaled(look::HeadingSize + 2)) << name;
    }
    for (const auto* text : window.findChildren<QPlainTextEdit*>()) {
      EXPECT_EQ(text->fontInfo().pixelSize(), look::Scaled(look::TextSize)) << name;
    }
  });
}

TEST_P(Dialogs, OpenInTheMiddleOfTheWindow) {
  StartThere();
  InEach([this](const std::string& name, QWidget& window) {
    if (name == "debug window") return;
    const QPoint off =
        window.frameGeometry().center() - program_->Window().frameGeometry().center();
    EXPECT_LE(off.manhattanLength(), 60) << name;
  });
}

TEST_P(Dialogs, HaveAnswersOfOneHeightAndOneLeastWidthWithoutASign) {
  StartThere();
  int answers = 0;
  InEach([&](const std::string& name, QWidget& window) {
    for (const auto* answer : window.findChildren<QPushButton*>()) {
      if (!answer->isVisible()) continue;
      ++answers;
      EXPECT_EQ(answer->height(), look::Scaled(look::FieldHeight)) << name;
      EXPECT_GE(answer->width(), look::Scaled(108)) << name;
      EXPECT_TRUE(answer->icon().isNull()) << name;
      EXPECT_FALSE(answer->font().bold()) << name;
    }
  });
  EXPECT_EQ(answers, 10);
}

TEST_P(Dialogs, TheFinderOpensWithAListOfThirteenSenders) {
  StartThere();
  InFinder([this](QWidget& window) {
    auto& list = *window.findChild<QListWidget*>("IDlook.List1");
    Program().Windows.IDlook.List1.Items = std::vector<platform::CheckItem>{{"A", false}};
    EXPECT_EQ(list.sizeHintForRow(0), look::Scaled(26));
    EXPECT_GE(WholeRows(list), 13);
  });
}

TEST_P(Dialogs, TheListOfTheFinderHasTheEdgeAndTheCornersOfAField) {
  StartThere();
  InFinder([](QWidget& window) {
    auto& list = *window.findChild<QListWidget*>("IDlook.List1");
    window.findChild<QPushButton*>()->setFocus();
    QTest::qWait(30);
    const QImage picture = window.grab().toImage();
    const QPoint corner = list.mapTo(&window, QPoint(0, 0));
    const QPoint side = corner + QPoint(0, list.height() / 2);
    EXPECT_EQ(picture.pixelColor(side), look::StrongEdge);
    EXPECT_EQ(picture.pixelColor(side + QPoint(look::LineWidth(), 0)), look::Card);
    // The window shows beside the round corner.
    EXPECT_EQ(picture.pixelColor(corner), QColor(147, 201, 254));
  });
}

TEST_P(Dialogs, TheFolderDialogHasButtonsAndPlacesInTheFactor) {
  StartThere();
  InFolderDialog([](QWidget& window) {
    const int side = look::Scaled(look::FieldHeight);
    const QList<QToolButton*> buttons = window.findChildren<QToolButton*>();
    ASSERT_GE(buttons.size(), 4);
    for (const auto* button : buttons) EXPECT_EQ(button->size(), QSize(side, side));
    EXPECT_GE(window.findChild<QWidget*>("sidebar")->width(), look::Scaled(180));
    EXPECT_EQ(window.findChild<QWidget*>("fileNameEdit")->height(), side);
  });
}

INSTANTIATE_TEST_SUITE_P(
    Of, Dialogs,
    testing::Values(Place{"smallest", {1024, 768}}, Place{"low", {1366, 768}},
                    Place{"usual", {1920, 1080}}, Place{"portrait", {1080, 1920}},
                    Place{"large", {2560, 1440}}, Place{"large", {3840, 2160}}),
    [](const auto& place) {
      return std::string(place.param.Screen) + std::to_string(place.param.Window.width());
    });

TEST_F(DialogScene, TheAnswerThatReturnGivesIsMarkedWhileTheFocusIsElsewhere) {
  StartOn("usual", {1024, 768});
  InFinder([](QWidget& window) {
    auto& close = *window.findChild<QPushButton*>();
    ASSERT_FALSE(close.hasFocus());
    const QImage picture = close.grab().toImage();
    EXPECT_EQ(picture.pixelColor(0, picture.height() / 2), look::Accent);
  });
}

/// The words of a message as they are painted.
class MessageWords : public DialogScene, public testing::WithParamInterface<QSize> {
 protected:
  QImage Painted(const QString& words) {
    QImage picture;
    InMessageBox({"", words.toStdString()},
                 [&](QWidget& box) { picture = box.findChild<QLabel*>()->grab().toImage(); });
    return picture;
  }
  /// The same words with their lines broken, as late as may be, in a width of the design.
  static QString Broken(const QString& words, int width) {
    QString broken;
    QString line;
    for (const QString& word : words.split(' ')) {
      const QString longer = line.isEmpty() ? word : line + ' ' + word;
      const bool fits =
          QFontMetrics(QApplication::font()).horizontalAdvance(longer) <= look::Scaled(width);
      if (!fits) broken += line + '\n';
      line = fits ? longer : word;
    }
    return broken + line;
  }
};

TEST_P(MessageWords, AreBrokenBetweenEachOther) {
  StartOn("large", GetParam());
  const QString words =
      "It was not possible to open a program for viewing the stored data file. Nevertheless the "
      "file is stored properly, and it can be opened by hand at any time from the folder that "
      "Setup names.";
  const QString broken = Broken(words, 600);
  ASSERT_GE(broken.count('\n'), 2);
  EXPECT_EQ(Painted(words), Painted(broken));
}

TEST_P(MessageWords, AreBrokenWithinThemselvesWhereOneIsWiderThanABox) {
  StartOn("large", GetParam());
  const QImage one = Painted(QString(40, 'm'));
  const QImage many = Painted(QString(200, 'm'));
  EXPECT_LE(many.width(), look::Scaled(600));
  EXPECT_GE(many.height(), 3 * one.height());
}

INSTANTIATE_TEST_SUITE_P(In, MessageWords, testing::Values(QSize(1024, 768), QSize(3840, 2160)),
                         [](const auto& size) { return std::to_string(size.param.width()); });

/// A window that stands while the main one changes its size.
class FollowingDialogs : public DialogScene {};

TEST_F(FollowingDialogs, TheFinderFollowsAFactorThatChangesBelowIt) {
  StartOn("large", {1024, 768});
  InFinder([this](QWidget& window) {
    auto& heading = *window.findChild<QLabel*>();
    auto& list = *window.findChild<QListWidget*>("IDlook.List1");
    const QSize small = window.size();
    const int heading1 = heading.height();
    for (const QSize size : {QSize(3840, 2160), QSize(1024, 768), QSize(3840, 2160)}) {
      ResizeFrame(size);
      const double factor = look::ScaleFor(size);
      EXPECT_TRUE(WaitFor([&] { return window.size() == small * factor; }));
      EXPECT_TRUE(WaitFor([&] { return heading.height() == heading1 * factor; }));
      EXPECT_EQ(heading.font().pixelSize(), (look::HeadingSize + 2) * factor);
      EXPECT_EQ(list.fontInfo().pixelSize(), look::TextSize * factor);
    }
  });
}

TEST_F(FollowingDialogs, ASizeThatTheUserGaveIsKeptAsASizeOfTheSmallestWindow) {
  StartOn("large", {1024, 768});
  InHistory([](QWidget& window) { window.resize(500, 300); });
  InHistory([](QWidget& window) { EXPECT_EQ(window.size(), QSize(500, 300)); });
  ResizeFrame({3840, 2160});
  InHistory([](QWidget& window) { EXPECT_EQ(window.size(), QSize(1000, 600)); });
  ResizeFrame({1024, 768});
  InHistory([](QWidget& window) { EXPECT_EQ(window.size(), QSize(500, 300)); });
}

TEST_F(FollowingDialogs, OneThatALowScreenHeldDownHasItsOwnSizeOnALargerOne) {
  StartOn("large", {3840, 2160});
  InFinder([](QWidget& window) { window.resize(1800, 1900); });
  GoTo("usual");
  InFinder([](QWidget& window) {
    EXPECT_EQ(window.width(), 1800);
    EXPECT_LE(window.height(), 1080);
  });
  GoTo("large");
  InFinder([](QWidget& window) { EXPECT_EQ(window.size(), QSize(1800, 1900)); });
}

}  // namespace
}  // namespace desktop
