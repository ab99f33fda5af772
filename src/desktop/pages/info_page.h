#pragma once

#include <QWidget>

#include "desktop/binding/binder.h"
#include "desktop/binding/rich_rows.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/link_label.h"
#include "desktop/widgets/logo_view.h"
#include "forms/information_controls.h"
#include "forms/shared_controls.h"
#include "forms/window_controls.h"

namespace desktop {

/// The information page, the first that a new user sees: what the program is for, and at the foot
/// its logo with the ways to its support and its history.
class InfoPage : public QWidget, public look::Scalable {
  Q_OBJECT

 public:
  InfoPage(forms::InformationControls& page, forms::SharedControls& shared,
           forms::WindowControls& form, Binder& binder, QWidget* parent);
  void TakeScale() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  static void Fit(platform::Label& control, LinkLabel& link);
  void PlaceLinks();

  forms::InformationControls& page_;
  forms::SharedControls& shared_;
  forms::WindowControls& form_;
  RichRows rows_;
  LogoView* logo_;
  LinkLabel* support_;
  LinkLabel* history_;
};

}  // namespace desktop
