#pragma once

#include "desktop/widgets/text_field.h"
#include "desktop/widgets/whole_tip.h"

namespace desktop {

/// A field for a path: as long as nobody edits it, one that is too long loses its beginning, since
/// its end tells most. Its tip tells it whole, on a line below the tip that it was given.
class PathField : public TextField {
  Q_OBJECT

 public:
  explicit PathField(QWidget* parent);

  void ShowText(const QString& text) override;

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Where the text is painted.
  QRect Room() const;

  WholeTip* tip_;
  bool edited_ = false;
};

}  // namespace desktop
