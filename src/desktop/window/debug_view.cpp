#include "desktop/window/debug_view.h"

#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/widgets/window_fit.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr QSize UsualSize(640, 400);
constexpr int Margin = 10;

}  // namespace

DebugView::DebugView(forms::DebugWindow& window, Binder& binder, QWidget* parent)
    : QWidget(parent, Qt::Window) {
  setObjectName(QStringLiteral("DebugWindow"));
  setWindowTitle(ToQt(window.Window.Caption));
  auto* text = new TextArea(this);
  text->setFont(look::TextFont(look::TextSize, QStringLiteral("Courier New")));
  text->setAccessibleName(windowTitle());
  binder.Bind(window.Text1, *text, QStringLiteral("DebugWindow.Text1"));
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(Margin, Margin, Margin, Margin);
  all->addWidget(text);
  new WindowFit(*this, UsualSize);
}

}  // namespace desktop
