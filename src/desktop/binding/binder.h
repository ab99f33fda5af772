#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QString>
#include <QWidget>

#include "desktop/binding/repaint_queue.h"
#include "desktop/widgets/check_list_view.h"
#include "desktop/widgets/choice_box.h"
#include "desktop/widgets/click_label.h"
#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/radio_button.h"
#include "desktop/widgets/reading_field.h"
#include "desktop/widgets/run_button.h"
#include "desktop/widgets/structure_field.h"
#include "desktop/widgets/text_area.h"
#include "desktop/widgets/text_field.h"
#include "platform/controls/buttons.h"
#include "platform/controls/check_box.h"
#include "platform/controls/check_list.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/label.h"
#include "platform/controls/option_button.h"
#include "platform/controls/progress_bar.h"
#include "platform/controls/quiet_line.h"
#include "platform/controls/status_bar.h"
#include "platform/controls/text_box.h"
#include "platform/loop/guard.h"

namespace desktop {

/// What a caption is.
enum class Wording {
  /// The program's own words; an ampersand marks the key of the control.
  Own,
  /// A text of the user's or of the bus. An ampersand is just itself, and what has no shape is
  /// written out.
  Foreign,
  /// The same, in columns of one pitch: what has no shape is a blank.
  Columns
};

/// Ties the controls of a form to widgets: what the program sets flows to the widget, what the user
/// does comes back as an assignment or an event of the control. The widget gets the control's name
/// and never decides anything.
class Binder {
 public:
  Binder(platform::Guard& guard, RepaintQueue& repaints);

  /// Shows at once what was stored since the last frame, for a window that opens by the size of its
  /// words.
  void ShowNow() { repaints_.Flush(); }

  void Bind(platform::Label& control, QLabel& widget, const QString& name,
            Wording wording = Wording::Own);
  void Bind(platform::Label& control, ClickLabel& widget, const QString& name,
            Wording wording = Wording::Own);
  void Bind(platform::Label& control, ReadingField& widget, const QString& name);
  void Bind(platform::QuietLine& control, QuietLine& widget, const QString& name);
  void Bind(platform::CWButton& control, RunButton& widget, const QString& name);
  void Bind(platform::CommandButton& control, QPushButton& widget, const QString& name);
  void Bind(platform::CheckBox& control, QCheckBox& widget, const QString& name,
            Wording wording = Wording::Own);
  void Bind(platform::OptionButton& control, RadioButton& widget, const QString& name,
            Wording wording = Wording::Own);
  void Bind(platform::ComboBox& control, ChoiceBox& widget, const QString& name);
  void Bind(platform::CheckList& control, CheckListView& widget, const QString& name);
  void Bind(platform::TextBox& control, TextField& widget, const QString& name);
  void Bind(platform::TextBox& control, TextArea& widget, const QString& name);
  void Bind(platform::TextBox& control, StructureField& widget, const QString& name);
  void Bind(platform::GroupBox& control, QWidget& widget, const QString& name);
  void Bind(platform::PictureBox& control, QWidget& widget, const QString& name);
  void Bind(platform::Shape& control, QWidget& widget, const QString& name);
  void Bind(platform::ProgressBar& control, QProgressBar& widget, const QString& name);
  void Bind(platform::Panel& panel, QLabel& widget, const QString& name);

 private:
  void BindControl(platform::Control& control, QWidget& widget, const QString& name);
  template <typename T, typename Show>
  void FollowLater(platform::Property<T>& property, Show show);

  platform::Guard& guard_;
  RepaintQueue& repaints_;
};

/// The name of a member of a control array, such as "Label5(3)".
QString ArrayName(const char* array, std::size_t index);

}  // namespace desktop
