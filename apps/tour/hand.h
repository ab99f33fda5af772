#pragma once

#include <QDialog>
#include <QString>
#include <QWidget>
#include <functional>

namespace tour {

/// A user's hand at the window: it finds controls by their names and works them with mouse and keys
/// only.
class Hand {
 public:
  explicit Hand(QWidget& window) : window_(window) {}

  /// The control of this name; throws where the window has none.
  QWidget& Find(const QString& name) const;
  void Click(const QString& name) const;
  void ClickTab(int tab) const;
  /// Replaces the text of a field by typing.
  void Type(const QString& field, const QString& text) const;
  /// Opens the list and takes its first or its last entry.
  void ChooseFirst(const QString& list) const { Choose(list, Qt::Key_Home); }
  void ChooseLast(const QString& list) const { Choose(list, Qt::Key_End); }
  /// Lets the program run until the condition holds; False when the time is over.
  static bool WaitFor(const std::function<bool()>& condition, int timeoutMs);
  /// Works once on the next dialog that opens.
  void OnDialog(std::function<void(QDialog&)> work) const;

 private:
  void Choose(const QString& list, Qt::Key key) const;

  QWidget& window_;
};

}  // namespace tour
