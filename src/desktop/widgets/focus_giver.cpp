#include "desktop/widgets/focus_giver.h"

#include <QEvent>
#include <QTimer>

namespace desktop {

namespace {

constexpr const char* Name = "focusGiver";

/// Waits for its widget to be shown.
class FocusGiver : public QObject {
 public:
  explicit FocusGiver(QWidget& widget) : QObject(&widget) {
    setObjectName(QLatin1String(Name));
    widget.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show) {
      auto* widget = static_cast<QWidget*>(parent());
      // The view's own focus moves while it is brought up; this one comes after it.
      QTimer::singleShot(0, widget, [widget] { widget->setFocus(); });
      deleteLater();
    }
    return QObject::eventFilter(watched, event);
  }
};

}  // namespace

void GiveFocus(QWidget& widget) {
  widget.setFocus();
  if (widget.isVisible() || widget.findChild<QObject*>(QLatin1String(Name)) != nullptr) return;
  new FocusGiver(widget);
}

}  // namespace desktop
