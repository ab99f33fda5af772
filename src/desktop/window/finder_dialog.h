#pragma once

#include "desktop/binding/binder.h"
#include "desktop/widgets/check_list_view.h"
#include "desktop/window/headed_dialog.h"
#include "forms/id_look.h"

namespace desktop {

/// The window of the stream finder. It is built when it opens first. The bus is listened to while
/// it stands, so its list grows under the user's hands.
class FinderDialog : public HeadedDialog {
  Q_OBJECT

 public:
  FinderDialog(forms::IDlook& look, const platform::TabStrip& strip, Binder& binder,
               platform::Guard& guard, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void AddSenders(Binder& binder);
  QLabel* AddLine();
  void ShowGround();

  forms::IDlook& look_;
  CheckListView* list_;
};

}  // namespace desktop
