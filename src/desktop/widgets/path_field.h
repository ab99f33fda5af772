#pragma once

#include "desktop/widgets/text_field.h"
#include "desktop/widgets/whole_tip.h"

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

 private:
  WholeTip* tip_;
};

}  // namespace desktop
