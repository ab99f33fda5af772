#pragma once

#include <QDialog>

#include "desktop/binding/binder.h"
#include "desktop/widgets/check_list_view.h"
#include "forms/id_look.h"
#include "platform/controls/tab_strip.h"
#include "platform/loop/guard.h"

namespace desktop {

/// The window of the stream finder. It is built when it opens first. The bus is listened to while
/// it stands, so its list grows under the user's hands.
class FinderDialog : public QDialog {
  Q_OBJECT

 public:
  /// The heading stands in the colours of the strip.
  FinderDialog(forms::IDlook& look, const platform::TabStrip& strip, Binder& binder,
               platform::Guard& guard, QWidget* parent);

  void reject() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* Sheet(Binder& binder);
  void ShowGround();

  forms::IDlook& look_;
  const platform::TabStrip& strip_;
  platform::Guard& guard_;
  CheckListView* list_;
};

}  // namespace desktop
