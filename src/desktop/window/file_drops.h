#pragma once

#include <QDropEvent>
#include <QObject>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace desktop {

/// Takes files that are dropped anywhere on the main window, also on a field that would write their
/// path down, and hands their paths to the program. Whoever gives them keeps them. While a dialog
/// stands in front of the window, nothing is taken.
class FileDrops : public QObject {
  Q_OBJECT

 public:
  explicit FileDrops(QWidget& window);

  /// Called with the paths, and with the addresses of what is no file of this computer.
  std::function<void(const std::vector<std::string>& paths)> Dropped;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool IsOurs(const QObject* watched) const;
  void Take(const QDropEvent& drop);

  QWidget& window_;
};

}  // namespace desktop
