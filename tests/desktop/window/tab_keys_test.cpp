#include <QImage>
#include <QLabel>
#include <QStackedWidget>
#include <QTabBar>
#include <algorithm>
#include <map>

#include "window_scene.h"

namespace desktop {
namespace {

/// The keys of the tabs beside those of the pages.
class TabKeysScene : public WindowScene {
 protected:
  static constexpr int Views = 7;
  /// The letters of the tabs, in their order.
  static constexpr const char* Letters = "IVPWRESX";

  void StartWithStorage() {
    Start();
    // What opens other windows is not pressed here.
    for (platform::CommandButton* button : {&Form().Command3, &Form().Command7}) {
      button->Click = [] {};
    }
  }
  void Alt(char letter) {
    QTest::keyClick(&program_->Window(), static_cast<Qt::Key>(letter), Qt::AltModifier);
  }
  void Ctrl(int key, Qt::KeyboardModifiers also = {}) {
    QTest::keyClick(&program_->Window(), static_cast<Qt::Key>(key), Qt::ControlModifier | also);
  }
  int Tab() { return Form().TabStrip1.SelectedTab.Get(); }
  QWidget& Page() { return *program_->Window().findChild<QStackedWidget*>()->currentWidget(); }
  /// The widgets of the shown page by the letter that is underlined in their captions.
  std::multimap<char, QWidget*> Underlined() {
    std::multimap<char, QWidget*> found;
    const auto note = [&](QWidget* widget, QString caption) {
      caption.remove("&&");
      const qsizetype mark = caption.indexOf('&');
      if (mark < 0 || widget == nullptr || !widget->isVisible()) return;
      found.insert({caption[mark + 1].toUpper().toLatin1(), widget});
    };
    for (auto* button : Page().findChildren<QAbstractButton*>()) note(button, button->text());
    for (auto* label : Page().findChildren<QLabel*>()) note(label->buddy(), label->text());
    return found;
  }
};

TEST_F(TabKeysScene, ALetterThatIsUnderlinedOnThePageStaysOnIt) {
  StartWithStorage();
  std::map<int, std::string> underlined;
  for (int tab = 1; tab <= Views; ++tab) {
    ClickTab(tab);
    ASSERT_EQ(Tab(), tab);
    Form().Frame4.Visible = true;
    Form().Command9.Visible = true;
    const auto widgets = Underlined();
    for (auto at = widgets.begin(); at != widgets.end(); at = widgets.upper_bound(at->first)) {
      const char letter = at->first;
      underlined[tab] += letter;
      bool reached = false;
      const auto [begin, end] = widgets.equal_range(letter);
      for (auto same = begin; same != end; ++same) {
        const auto* button = qobject_cast<QAbstractButton*>(same->second);
        if (button != nullptr) {
          QObject::connect(button, &QAbstractButton::clicked, &Page(), [&] { reached = true; });
        }
      }
      program_->Window().setFocus();
      // The letter of another format has hidden it.
      Form().Command9.Visible = true;

      Alt(letter);

      const auto focused = [&, begin = begin, end = end] {
        return std::any_of(begin, end, [](const auto& same) {
          return same.second->hasFocus() || !same.second->isEnabled();
        });
      };
      // A button that is pressed by its key takes a moment.
      EXPECT_TRUE(WaitFor([&] { return reached || focused(); })) << letter << " on " << tab;
      ASSERT_EQ(Tab(), tab) << letter;
      ASSERT_FALSE(exitCode_) << letter << " on " << tab;
      for (auto same = begin; same != end; ++same) same->second->disconnect(&Page());
    }
  }
  EXPECT_EQ(underlined[forms::tab::Values], "A");
  EXPECT_EQ(underlined[forms::tab::Recorder], "ADFGLMNWX");
  EXPECT_EQ(underlined[6], "P");
  EXPECT_EQ(underlined[forms::tab::Setup], "12ABDFGINOQSU");
}

TEST_F(TabKeysScene, EveryOtherLetterOfATabSelectsItFromEveryPage) {
  StartWithStorage();
  const std::map<int, std::string> taken = {
      {forms::tab::Recorder, "WX"}, {6, "P"}, {forms::tab::Setup, "IS"}};
  for (int from = 1; from <= Views; ++from) {
    for (int to = 1; to <= Views; ++to) {
      ClickTab(from);
      ASSERT_EQ(Tab(), from);
      const char letter = Letters[to - 1];
      const auto onPage = taken.find(from);
      const bool left = onPage != taken.end() && onPage->second.find(letter) != std::string::npos;

      Alt(letter);

      EXPECT_EQ(Tab(), left ? from : to) << letter << " from " << from;
    }
  }
  EXPECT_FALSE(exitCode_);
}

TEST_F(TabKeysScene, TheKeyOfTheExcelFormatDoesNotEndTheProgram) {
  StartWithStorage();
  ClickTab(forms::tab::Recorder);

  Alt('X');

  EXPECT_TRUE(WaitFor([&] { return Form().Option2[1].Value.Get(); }));
  EXPECT_EQ(Tab(), forms::tab::Recorder);
  Form().Option2[1].Enabled = false;
  Alt('X');
  EXPECT_EQ(Tab(), forms::tab::Recorder);
  EXPECT_FALSE(exitCode_);
  ClickTab(forms::tab::Values);
  Alt('X');
  EXPECT_TRUE(WaitFor([&] { return exitCode_ == 0; }));
}

TEST_F(TabKeysScene, TheLetterOfAControlThatIsHiddenGoesBackToItsTab) {
  StartWithStorage();
  ClickTab(forms::tab::Recorder);
  Alt('W');
  EXPECT_EQ(Tab(), forms::tab::Recorder);

  Form().Shape9.Visible = false;
  Alt('W');

  EXPECT_EQ(Tab(), 4);
}

TEST_F(TabKeysScene, EveryTabHasItsNumber) {
  StartWithStorage();
  for (int from = 1; from <= Views; ++from) {
    for (int to = 1; to <= Views; ++to) {
      ClickTab(from);
      Ctrl(Qt::Key_0 + to);
      EXPECT_EQ(Tab(), to) << from;
      EXPECT_EQ(program_->Window().findChild<QStackedWidget*>()->currentIndex(), to - 1);
    }
  }
  int changes = 0;
  ClickTab(forms::tab::Values);
  Form().TabStrip1.Changed = [&] { ++changes; };
  Ctrl(Qt::Key_2);
  EXPECT_EQ(changes, 1);
}

TEST_F(TabKeysScene, TheNumberOfTheLastTabEndsTheProgram) {
  Start();
  Ctrl(Qt::Key_8);
  EXPECT_TRUE(WaitFor([&] { return exitCode_ == 0; }));
}

TEST_F(TabKeysScene, TheOtherKeysGoRoundTheViewsAndNeverEndTheProgram) {
  StartWithStorage();
  struct Step {
    int Key = 0;
    Qt::KeyboardModifiers Also;
    int Way = 0;
  };
  const Step steps[] = {{Qt::Key_Tab, {}, 1},
                        {Qt::Key_PageDown, {}, 1},
                        {Qt::Key_Tab, Qt::ShiftModifier, -1},
                        {Qt::Key_Backtab, Qt::ShiftModifier, -1},
                        {Qt::Key_PageUp, {}, -1}};
  for (const Step& step : steps) {
    ClickTab(forms::tab::Info);
    for (int i = 1; i <= 2 * Views; ++i) {
      Ctrl(step.Key, step.Also);
      ASSERT_EQ(Tab(), ((i * step.Way) % Views + Views) % Views + 1) << step.Key;
    }
  }
  EXPECT_FALSE(exitCode_);
}

TEST_F(TabKeysScene, TheCaptionsKeepTheirUnderlinedLettersOnEveryPage) {
  StartWithStorage();
  auto& strip = Find<QTabBar>("TabStrip1");
  ClickTab(forms::tab::Recorder);
  Find<QWidget>(Member("Text3", 2)).setFocus();
  const QImage before = strip.grab().toImage();

  Alt('X');

  EXPECT_EQ(strip.grab().toImage(), before);
}

}  // namespace
}  // namespace desktop
