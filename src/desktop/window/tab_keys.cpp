#include "desktop/window/tab_keys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>

namespace desktop {

namespace {

/// The key that a widget's caption names, if it has one.
QKeySequence KeyOf(const QWidget& widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->shortcut();
  const auto* label = qobject_cast<const QLabel*>(&widget);
  if (label == nullptr || label->buddy() == nullptr) return {};
  return QKeySequence::mnemonic(label->text());
}

QList<QKeySequence> KeysOn(const QWidget& page) {
  QList<QKeySequence> keys;
  // Also those of controls that are locked: a key that does nothing for the moment must not end the
  // program instead.
  for (const QWidget* widget : page.findChildren<QWidget*>()) {
    const QKeySequence key = KeyOf(*widget);
    if (!key.isEmpty() && widget->isVisible()) keys << key;
  }
  return keys;
}

}  // namespace

TabKeys::TabKeys(QWidget& window, TabBar& tabs, const QStackedWidget& pages)
    : QObject(&window), window_(window), tabs_(tabs), pages_(pages) {
  for (const auto key : {Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageDown}) {
    AddKey(key, [this] { GoRound(1); });
  }
  // With Shift the key of the tabulator is another one on many keyboards.
  for (const auto key : {Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab,
                         Qt::CTRL | Qt::Key_PageUp}) {
    AddKey(key, [this] { GoRound(-1); });
  }
  for (int index = 0; index < tabs_.count(); ++index) {
    AddKey(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + index),
           [this, index] { tabs_.Choose(index); });
  }
  qApp->installEventFilter(this);
}

void TabKeys::AddKey(const QKeySequence& key, const std::function<void()>& work) {
  auto* shortcut = new QShortcut(key, &window_);
  connect(shortcut, &QShortcut::activated, this, work);
}

void TabKeys::GoRound(int step) {
  const int views = tabs_.count() - 1;
  tabs_.Choose((tabs_.currentIndex() + step + views) % views);
}

bool TabKeys::eventFilter(QObject* watched, QEvent* event) {
  // Comes right before the key is looked up.
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->modifiers().testFlag(Qt::AltModifier)) {
    tabs_.LeaveKeys(KeysOn(*pages_.currentWidget()));
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace desktop
