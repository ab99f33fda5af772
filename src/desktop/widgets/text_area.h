#pragma once

#include <QPlainTextEdit>
#include <functional>

namespace desktop {

/// A field for a text of many lines.
class TextArea : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit TextArea(QWidget* parent);

  std::function<void()> DoubleClicked;

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
};

}  // namespace desktop
