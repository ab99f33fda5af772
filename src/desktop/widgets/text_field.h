#pragma once

#include <QLineEdit>
#include <functional>

namespace desktop {

/// A text field whose limit holds for typing and pasting only: a longer text from the program is
/// shown whole, and can be shortened but not made longer by hand.
class TextField : public QLineEdit {
  Q_OBJECT

 public:
  explicit TextField(QWidget* parent);

  std::function<void()> DoubleClicked;

  /// 0 is no limit.
  void SetTypingLimit(int characters);
  /// Shows a text of the program; the cursor stays where it is.
  virtual void ShowText(const QString& text);

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void AdaptLimit(qsizetype length);

  static constexpr int NoLimit = 32767;
  int limit_ = NoLimit;
};

}  // namespace desktop
