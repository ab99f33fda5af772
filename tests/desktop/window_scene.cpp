#include "window_scene.h"

#include <QApplication>
#include <QSettings>
#include <QTabBar>
#include <QTimer>
#include <utility>

#include "desktop/widgets/reading_field.h"

namespace desktop {

QString Member(const char* array, int index) {
  return QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index);
}

WindowScene::WindowScene(adapters::SystemCaptureLayer::InterfaceLister interfaces)
    : capture_(clock_, {}, std::move(interfaces)) {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home_.path());
  qputenv("HOME", home_.path().toUtf8());
}

WindowScene::~WindowScene() = default;

void WindowScene::Build() {
  program_.emplace(Sources{capture_, capture_, code_, clock_},
                   [this](int exitCode) { exitCode_ = exitCode; });
}

void WindowScene::Start() {
  Build();
  program_->Load();
  program_->Window().showNormal();
  ResizeFrame({1024, 768});
  ASSERT_TRUE(QTest::qWaitForWindowActive(&program_->Window()));
}

void WindowScene::ResizeFrame(QSize size) {
  MainWindow& window = program_->Window();
  window.resize(size - (window.frameGeometry().size() - window.size()));
}

QString WindowScene::Stored(const QString& key) {
  QSettings file(QSettings::NativeFormat, QSettings::UserScope, "Vornik", "Vornik");
  return file.value("INI/" + key).toString();
}

void WindowScene::Store(const QString& key, const QString& text) {
  QSettings file(QSettings::NativeFormat, QSettings::UserScope, "Vornik", "Vornik");
  file.setValue("INI/" + key, text);
}

void WindowScene::GoMeasure(const char* firstFilter) {
  ClickTab(SetupTab);
  Type(Member("Text1", 12), firstFilter);
  Type(Member("Text1", 14), "VORNIK-SIM-2");
  ClickTab(ValuesTab);
}

QString WindowScene::Reading(int channel) {
  return Find<ReadingField>(Member("Label5", channel)).Text();
}

void WindowScene::Click(const QString& name) {
  auto& widget = Find<QWidget>(name);
  QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(12, widget.height() / 2));
}

void WindowScene::ClickTab(int tab) {
  auto& tabs = Find<QTabBar>("TabStrip1");
  QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab - 1).center());
}

void WindowScene::Type(const QString& field, const QString& text) {
  auto& widget = Find<QWidget>(field);
  QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&widget, Qt::Key_Delete);
  QTest::keyClicks(&widget, text);
}

void WindowScene::OnDialog(std::function<void(QDialog&)> work) {
  auto* poll = new QTimer(&program_->Window());
  QObject::connect(poll, &QTimer::timeout, poll, [poll, work = std::move(work)] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    poll->stop();
    poll->deleteLater();
    work(*dialog);
  });
  poll->start(20);
}

}  // namespace desktop
