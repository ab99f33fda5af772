#include "desktop/binding/binder.h"

#include <QSignalBlocker>

#include "base/shown_text.h"
#include "desktop/binding/mouse_presses.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/widgets/focus_giver.h"

namespace desktop {

namespace {

constexpr const char* FocusKept = "focusKept";

QString WidgetCaption(const std::string& caption, Wording wording) {
  if (wording == Wording::Own) return ToQt(caption);
  QString text =
      ToQt(wording == Wording::Columns ? platform::Blanked(caption) : platform::Escaped(caption));
  return text.replace(u'&', QStringLiteral("&&"));
}

/// Shows a property now and whenever it was stored.
template <typename T, typename Show>
void Follow(platform::Property<T>& property, Show show) {
  show();
  property.Observe(show);
}

/// A widget that is locked or hidden for a while keeps its focus, so that a key pressed meanwhile
/// does not reach the next control. `change` locks or hides it, or brings it back where `back`
/// holds.
template <typename Change>
void KeepingFocus(QWidget& widget, bool back, Change change) {
  if (!back && widget.hasFocus()) {
    widget.clearFocus();
    widget.setProperty(FocusKept, true);
  }
  change();
  const bool usable = widget.isVisible() && widget.isEnabled();
  if (!usable || !widget.property(FocusKept).toBool()) return;
  widget.setProperty(FocusKept, false);
  if (widget.window()->focusWidget() == nullptr) widget.setFocus();
}

}  // namespace

QString ArrayName(const char* array, std::size_t index) {
  return QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index);
}

Binder::Binder(platform::Guard& guard, RepaintQueue& repaints)
    : guard_(guard), repaints_(repaints) {}

/// Shows a property that may change far more often than the screen can show.
template <typename T, typename Show>
void Binder::FollowLater(platform::Property<T>& property, Show show) {
  const std::size_t entry = repaints_.Add(show);
  repaints_.Mark(entry);
  property.Observe([this, entry] { repaints_.Mark(entry); });
}

void Binder::BindControl(platform::Control& control, QWidget& widget, const QString& name) {
  widget.setObjectName(name);
  Follow(control.Visible, [&] {
    KeepingFocus(widget, control.Visible, [&] { widget.setVisible(control.Visible); });
  });
  Follow(control.Enabled, [&] {
    KeepingFocus(widget, control.Enabled, [&] { widget.setEnabled(control.Enabled); });
  });
  Follow(control.ToolTipText, [&] { widget.setToolTip(ToQt(control.ToolTipText)); });
}

void Binder::Bind(platform::Label& control, QLabel& widget, const QString& name, Wording wording) {
  BindControl(control, widget, name);
  widget.setTextFormat(Qt::PlainText);
  FollowLater(control.Caption, [&, wording] {
    const QString caption = WidgetCaption(control.Caption, wording);
    // A label that leads to no field takes an ampersand as it stands.
    widget.setText(widget.buddy() != nullptr ? caption : PlainCaption(FromQt(caption)));
  });
  // The view's own colour and font hold until the program gives others.
  control.ForeColor.Observe([&] {
    // Black stands for the usual colour of texts.
    const bool usual = control.ForeColor == platform::Rgb{};
    look::SetTextColour(widget, usual ? look::Ink : look::ColourOf(control.ForeColor));
  });
  control.FontBold.Observe([&] {
    // The weight alone: the size goes on following the window.
    QFont font;
    font.setBold(control.FontBold);
    widget.setFont(font);
  });
}

void Binder::Bind(platform::Label& control, ClickLabel& widget, const QString& name,
                  Wording wording) {
  Bind(control, static_cast<QLabel&>(widget), name, wording);
  widget.Clicked = [&] { guard_([&] { control.Click(); }); };
  widget.DoubleClicked = [&] { guard_([&] { control.DblClick(); }); };
}

void Binder::Bind(platform::Label& control, ReadingField& widget, const QString& name) {
  BindControl(control, widget, name);
  FollowLater(control.Caption, [&] { widget.SetText(PlainCaption(control.Caption)); });
  widget.Clicked = [&] { guard_([&] { control.Click(); }); };
}

void Binder::Bind(platform::QuietLine& control, QuietLine& widget, const QString& name) {
  BindControl(control, widget, name);
  // It names senders by their IDs.
  FollowLater(control.Caption, [&] { widget.Say(ToQt(platform::Escaped(control.Caption.Get()))); });
  widget.DoubleClicked = [&] { guard_([&] { control.DblClick(); }); };
}

void Binder::Bind(platform::CWButton& control, RunButton& widget, const QString& name) {
  BindControl(control, widget, name);
  const auto showFaces = [&] { widget.SetFaces(ToQt(control.OffText), ToQt(control.OnText)); };
  Follow(control.OffText, showFaces);
  Follow(control.OnText, showFaces);
  Follow(control.BackColor, [&] { widget.SetColour(look::ColourOf(control.BackColor)); });
  Follow(control.Value, [&] { widget.SetPosition(control.Value); });
  QObject::connect(&widget, &QAbstractButton::clicked, &widget, [&] {
    guard_([&] {
      if (control.Enabled) control.Value = !control.Value;
    });
  });
}

void Binder::Bind(platform::CommandButton& control, QPushButton& widget, const QString& name) {
  BindControl(control, widget, name);
  Follow(control.Caption, [&] { widget.setText(ToQt(control.Caption)); });
  QObject::connect(&widget, &QAbstractButton::clicked, &widget,
                   [&] { guard_([&] { control.Click(); }); });
  new MousePresses(widget,
                   [&](std::int16_t button) { guard_([&] { control.MouseDown(button); }); });
}

void Binder::Bind(platform::CheckBox& control, QCheckBox& widget, const QString& name,
                  Wording wording) {
  BindControl(control, widget, name);
  Follow(control.Caption,
         [&, wording] { widget.setText(WidgetCaption(control.Caption, wording)); });
  Follow(control.Value, [&] { widget.setChecked(control.Value != 0); });
  control.ForeColor.Observe(
      [&] { look::SetTextColour(widget, look::ColourOf(control.ForeColor)); });
  QObject::connect(&widget, &QAbstractButton::toggled, &widget, [&](bool checked) {
    const bool byProgram = checked == (control.Value != 0);
    if (byProgram) return;
    guard_([&] { control.Value = static_cast<std::int16_t>(checked ? 1 : 0); });
  });
}

void Binder::Bind(platform::OptionButton& control, RadioButton& widget, const QString& name,
                  Wording wording) {
  BindControl(control, widget, name);
  Follow(control.Caption,
         [&, wording] { widget.setText(WidgetCaption(control.Caption, wording)); });
  const auto show = [&] { widget.setChecked(control.Value); };
  Follow(control.Value, show);
  QObject::connect(&widget, &QAbstractButton::toggled, &widget, [&, show](bool checked) {
    const bool byProgram = checked == control.Value;
    if (byProgram) return;
    if (checked) guard_([&] { control.Value = true; });
    // A click on the choice that is on already has switched its widget off.
    show();
  });
}

void Binder::Bind(platform::ComboBox& control, ChoiceBox& widget, const QString& name) {
  BindControl(control, widget, name);
  const auto showChoice = [&] {
    const QSignalBlocker quiet(&widget);
    widget.setCurrentIndex(control.ListIndex);
  };
  Follow(control.List, [&, showChoice] {
    const QSignalBlocker quiet(&widget);
    widget.clear();
    for (const std::string& item : control.List.Get()) widget.addItem(ToQt(item));
    showChoice();
  });
  Follow(control.ListIndex, showChoice);
  QObject::connect(&widget, &QComboBox::activated, &widget,
                   [&](int index) { guard_([&] { control.ListIndex = index; }); });
}

void Binder::Bind(platform::CheckList& control, CheckListView& widget, const QString& name) {
  BindControl(control, widget, name);
  Follow(control.Items, [&] { widget.ShowItems(control.Items); });
  widget.Moved = [&](int row) { guard_([&] { control.MoveTo(row); }); };
  widget.Turned = [&](int row, bool checked) { guard_([&] { control.Turn(row, checked); }); };
}

void Binder::Bind(platform::TextBox& control, TextField& widget, const QString& name) {
  BindControl(control, widget, name);
  Follow(control.MaxLength, [&] { widget.SetTypingLimit(control.MaxLength); });
  Follow(control.Text, [&] { widget.ShowText(ToQt(control.Text)); });
  // Whoever changes the text, also a program that assists the user, has made a change.
  QObject::connect(&widget, &QLineEdit::textChanged, &widget,
                   [&](const QString& text) { guard_([&] { control.Text = FromQt(text); }); });
  widget.DoubleClicked = [&] { guard_([&] { control.DblClick(); }); };
  control.SetFocus = [&] { GiveFocus(widget); };
}

void Binder::Bind(platform::TextBox& control, TextArea& widget, const QString& name) {
  BindControl(control, widget, name);
  Follow(control.Text, [&] {
    const QString text = DisplayLines(control.Text);
    if (text == widget.toPlainText()) return;
    const QSignalBlocker quiet(&widget);
    widget.setPlainText(text);
  });
  QObject::connect(&widget, &QPlainTextEdit::textChanged, &widget,
                   [&] { guard_([&] { control.Text = FromQt(widget.toPlainText()); }); });
  widget.DoubleClicked = [&] { guard_([&] { control.DblClick(); }); };
}

void Binder::Bind(platform::TextBox& control, StructureField& widget, const QString& name) {
  BindControl(control, widget, name);
  Follow(control.Text, [&] { widget.ShowText(ToQt(control.Text)); });
}

void Binder::Bind(platform::GroupBox& control, QWidget& widget, const QString& name) {
  BindControl(control, widget, name);
}

void Binder::Bind(platform::PictureBox& control, QWidget& widget, const QString& name) {
  BindControl(control, widget, name);
}

void Binder::Bind(platform::Shape& control, QWidget& widget, const QString& name) {
  BindControl(control, widget, name);
}

void Binder::Bind(platform::ProgressBar& control, QProgressBar& widget, const QString& name) {
  BindControl(control, widget, name);
  widget.setRange(0, 100);
  widget.setTextVisible(false);
  Follow(control.Value, [&] { widget.setValue(control.Value); });
  control.Repaint = [&] { widget.repaint(); };
}

void Binder::Bind(platform::Panel& panel, QLabel& widget, const QString& name) {
  widget.setObjectName(name);
  widget.setTextFormat(Qt::PlainText);
  Follow(panel.ToolTipText, [&] { widget.setToolTip(ToQt(panel.ToolTipText)); });
  FollowLater(panel.Text, [&] { widget.setText(ToQt(panel.Text)); });
}

}  // namespace desktop
