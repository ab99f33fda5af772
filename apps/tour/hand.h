#pragma once

#include <QDialog>
#include <QString>
#include <QWidget>
#include <functional>
#include <stdexcept>

namespace tour {

/// How long a user waits for what usually takes a moment, on a slow computer too.
inline constexpr int PatienceMs = 8000;

/// A user's hand at the window: it finds controls by their names and works them with mouse and keys
/// only. The scenes of the window's tests work with the same hand.
class Hand {
 public:
  explicit Hand(QWidget& window) : window_(window) {}

  /// The control of this name and kind; throws where the window has none.
  template <typename Widget = QWidget>
  Widget& Find(const QString& name) const {
    auto* widget = dynamic_cast<Widget*>(window_.findChild<QWidget*>(name));
    if (widget == nullptr) throw std::runtime_error("no control " + name.toStdString());
    return *widget;
  }
  void Click(const QString& name) const;
  void ClickTab(int tab) const;
  /// Replaces the text of a field by typing, behind a click into it.
  void Type(const QString& field, const QString& text) const;
  /// Replaces it by keys alone, whoever has the keyboard's focus.
  void Retype(const QString& field, const QString& text) const;
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
