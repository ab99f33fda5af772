#pragma once

#include <QStackedWidget>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "desktop/binding/binder.h"
#include "desktop/binding/repaint_queue.h"
#include "desktop/widgets/tab_bar.h"
#include "desktop/window/debug_view.h"
#include "desktop/window/end_question_dialog.h"
#include "desktop/window/finder_dialog.h"
#include "desktop/window/history_dialog.h"
#include "desktop/window/window_frame.h"
#include "forms/debug_window.h"
#include "forms/end_question.h"
#include "forms/id_look.h"
#include "forms/main_form.h"
#include "forms/revision_history.h"
#include "platform/loop/guard.h"

namespace desktop {

/// The forms of the program.
struct Forms {
  forms::Main& Main;
  forms::Revisionhistory& History;
  forms::DebugWindow& Debug;
  forms::IDlook& Finder;
  forms::EndQuestion& Question;
};

/// The program's one window: the strip of tabs, the view of the selected tab, and the status bar.
class MainWindow : public QWidget {
  Q_OBJECT

 public:
  MainWindow(const Forms& forms, platform::Guard& guard, RepaintQueue& repaints);

  /// Called when the program has unloaded its window.
  std::function<void()> Unloaded;
  /// Called with what the user has dropped on the window.
  std::function<void(const std::vector<std::string>& paths)> FilesDropped;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void FillTabs();
  void FillPages();
  void AddLogos(QWidget& waveformsFrame);
  void FollowSize(QSize size);
  void FollowOtherWindows();
  void ShowTab();
  void Select(int tab);

  forms::Main& main_;
  forms::Revisionhistory& history_;
  forms::DebugWindow& debug_;
  forms::IDlook& finder_;
  forms::EndQuestion& question_;
  platform::Guard& guard_;
  Binder binder_;
  TabBar* tabs_;
  QStackedWidget* pages_;
  WindowFrame* frame_ = nullptr;
  HistoryDialog* historyDialog_ = nullptr;
  FinderDialog* finderDialog_ = nullptr;
  DebugView* debugView_ = nullptr;
  EndQuestionDialog* questionDialog_ = nullptr;
  /// What the widgets stand in; they are made as the smallest window has them.
  double scale_ = 1;
};

}  // namespace desktop
