#pragma once

#include <QScreen>
#include <functional>

#include "desktop/services/qt_dialogs.h"
#include "window_scene.h"

namespace desktop {

/// The windows that open in front of the main one, by the ways that a user has to them.
class DialogScene : public WindowScene {
 protected:
  using Work = std::function<void(QWidget&)>;

  /// Starts the program, with its window as large as this, on the screen of this name.
  void StartOn(const QString& screen, QSize window) {
    Store("Internal Delay", "0");
    Start();
    GoTo(screen);
    ResizeFrame(window);
  }
  /// Moves the window to the screen of this name.
  void GoTo(const QString& screen) {
    for (const QScreen* each : QGuiApplication::screens()) {
      if (each->name() == screen) program_->Window().move(each->availableGeometry().topLeft());
    }
    ASSERT_TRUE(WaitFor([&] { return program_->Window().screen()->name() == screen; }));
  }

  /// Each opens its window, works in it, and closes it.
  void InFinder(const Work& work) {
    ClickTab(forms::tab::Setup);
    InModal(work, [this] { Click("Command7"); });
  }
  void InHistory(const Work& work) {
    ClickTab(forms::tab::Info);
    InModal(work, [this] { Click("Label4"); });
  }
  void InFolderDialog(const Work& work) {
    ClickTab(forms::tab::Setup);
    InModal(work, [this] { Click("Command3"); });
  }
  void InNoDataDialog(const Work& work) {
    InModal(work, [this] {
      Boxes().ShowTimed({"Attention",
                         " No data received!\r\n\r\nReasons:\r\n- check cable (crossed/straight "
                         "network cable)\r\n"
                         "- check your choice of the network adapter\r\n"
                         "- check setup of your network connection (half duplex!)\r\n"
                         "- check correct filter setup (filter condition, filter content)\r\n"
                         "- run 'Find streams' on tab 'Setup'\r\n\r\n"
                         "If it still fails, please restart the program and try it again.",
                         "Close", "Verdana", true, 30,
                         "This window will be closed after: #sec# seconds."});
    });
  }
  void InMessageBox(const platform::Message& message, const Work& work) {
    InModal(work, [&] { Boxes().Show(message); });
  }
  void InEndQuestion(const Work& work) {
    forms::EndQuestion& question = Program().Windows.EndQuestion;
    question.Question.Caption = "A recording is running since 18:15:57. End it?";
    question.Remaining.Caption = "The recording is kept; 30 s.";
    question.Window.Visible = true;
    QTest::qWait(50);
    work(Find<QDialog>("EndQuestion"));
    question.Window.Visible = false;
  }
  void InDebugWindow(const Work& work) {
    Program().Windows.DebugWindow.Text1.Text = "a trace";
    Program().Windows.DebugWindow.Window.Visible = true;
    QTest::qWait(50);
    work(Find<QWidget>("DebugWindow"));
    Program().Windows.DebugWindow.Window.Visible = false;
  }
  /// All of them, one behind the other.
  void InEach(const std::function<void(const std::string& name, QWidget&)>& work) {
    using namespace std::placeholders;
    InFinder(std::bind(work, "finder", _1));
    InHistory(std::bind(work, "history", _1));
    InFolderDialog(std::bind(work, "folders", _1));
    InNoDataDialog(std::bind(work, "no data", _1));
    InMessageBox({"Attention",
                  "The given path isn't accessible!\r\n\r\n/srv/substation/north/" +
                      std::string(180, 'a') + "/records\r\n\r\nPlease choose another one.",
                  platform::Icon::Critical, platform::Buttons::YesNo},
                 std::bind(work, "long message", _1));
    InMessageBox({"", "Done.", platform::Icon::None}, std::bind(work, "short message", _1));
    InEndQuestion(std::bind(work, "end question", _1));
    InDebugWindow(std::bind(work, "debug window", _1));
  }

 private:
  QtDialogs& Boxes() {
    dialogs_.SetOwner(&program_->Window());
    return dialogs_;
  }
  void InModal(const Work& work, const std::function<void()>& open) {
    bool worked = false;
    OnDialog([&](QDialog& dialog) {
      worked = true;
      QTest::qWait(50);
      work(dialog);
      dialog.reject();
    });
    open();
    EXPECT_TRUE(worked);
  }

  QtDialogs dialogs_;
};

}  // namespace desktop
