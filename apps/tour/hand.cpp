#include "hand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <utility>

namespace tour {

namespace {

constexpr int DialogPollMs = 20;

}  // namespace

void Hand::Click(const QString& name) const {
  auto& widget = Find(name);
  // Check boxes and choices react on their mark and text, which stand at the left.
  QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(12, widget.height() / 2));
}

void Hand::ClickTab(int tab) const {
  auto& tabs = Find<QTabBar>(QStringLiteral("TabStrip1"));
  QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab - 1).center());
}

void Hand::Type(const QString& field, const QString& text) const {
  QTest::mouseClick(&Find(field), Qt::LeftButton);
  Retype(field, text);
}

void Hand::Retype(const QString& field, const QString& text) const {
  auto& widget = Find(field);
  QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&widget, Qt::Key_Delete);
  QTest::keyClicks(&widget, text);
}

void Hand::Choose(const QString& list, Qt::Key key) const {
  auto& box = Find<QComboBox>(list);
  QTest::mouseClick(&box, Qt::LeftButton);
  QTest::keyClick(box.view(), key);
  QTest::keyClick(box.view(), Qt::Key_Return);
}

bool Hand::WaitFor(const std::function<bool()>& condition, int timeoutMs) {
  return QTest::qWaitFor(condition, timeoutMs);
}

void Hand::OnDialog(std::function<void(QDialog&)> work) const {
  auto* poll = new QTimer(&window_);
  QObject::connect(poll, &QTimer::timeout, poll, [poll, work = std::move(work)] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    poll->stop();
    poll->deleteLater();
    work(*dialog);
  });
  poll->start(DialogPollMs);
}

}  // namespace tour
