#pragma once

#include <QPlainTextEdit>
#include <functional>

#include "desktop/look/scale.h"

namespace desktop {

/// A field for a text of many lines.
class TextArea : public QPlainTextEdit, public look::Scalable {
  Q_OBJECT

 public:
  explicit TextArea(QWidget* parent);

  std::function<void()> DoubleClicked;

  void TakeScale() override;

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
};

}  // namespace desktop
