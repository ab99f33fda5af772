#pragma once

#include <QKeySequence>
#include <QObject>
#include <QStackedWidget>
#include <QWidget>
#include <functional>

#include "desktop/widgets/tab_bar.h"

namespace desktop {

/// The keys of the tabs. A letter that is a key on the shown page is left to the page; so every tab
/// has its number as well, and Ctrl+Tab, Ctrl+PageDown and their reverses go round the views. Only
/// a key of its own reaches the last tab, which ends the program.
class TabKeys : public QObject {
  Q_OBJECT

 public:
  TabKeys(QWidget& window, TabBar& tabs, const QStackedWidget& pages);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddKey(const QKeySequence& key, const std::function<void()>& work);
  void GoRound(int step);

  QWidget& window_;
  TabBar& tabs_;
  const QStackedWidget& pages_;
};

}  // namespace desktop
