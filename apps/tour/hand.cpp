#include "hand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <stdexcept>
#include <utility>

namespace tour {

namespace {

constexpr int DialogPollMs = 50;

}  // namespace

QWidget& Hand::Find(const QString& name) const {
  auto* widget = window_.findChild<QWidget*>(name);
  if (widget == nullptr) throw std::runtime_error("no control " + name.toStdString());
  return *widget;
}

void Hand::Click(const QString& name) const {
  QWidget& widget = Find(name);
  // Check boxes and choices react on their mark and text, which stand at the left.
  QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(12, widget.height() / 2));
}

void Hand::ClickTab(int tab) const {
  auto& tabs = dynamic_cast<QTabBar&>(Find(QStringLiteral("TabStrip1")));
  QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab - 1).center());
}

void Hand::Type(const QString& field, const QString& text) const {
  QWidget& widget = Find(field);
  QTest::mouseClick(&widget, Qt::LeftButton);
  QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&widget, Qt::Key_Delete);
  QTest::keyClicks(&widget, text);
}

void Hand::Choose(const QString& list, Qt::Key key) const {
  auto& box = dynamic_cast<QComboBox&>(Find(list));
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
