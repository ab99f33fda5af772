#pragma once

#include "desktop/widgets/text_field.h"

namespace desktop {

/// A field for a path: as long as nobody edits it, one that is too long shows its end, where it
/// tells most. Its tip tells it whole, on a line below the tip that it was given.
class PathField : public TextField {
  Q_OBJECT

 public:
  explicit PathField(QWidget* parent);

  void ShowText(const QString& text) override;

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void ShowTip();

  /// The tip without the path.
  QString tip_;
  bool showingTip_ = false;
};

}  // namespace desktop
