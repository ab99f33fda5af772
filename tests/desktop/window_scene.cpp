#include "window_scene.h"

#include <QSettings>
#include <utility>

#include "desktop/look/scale.h"
#include "desktop/widgets/reading_field.h"

namespace desktop {

std::string NameOfSize(const testing::TestParamInfo<QSize>& size) {
  return std::to_string(size.param.width()) + "x" + std::to_string(size.param.height());
}

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
  // As in a process of its own, whatever the size of the window before.
  look::SetScale(1);
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
  ClickTab(forms::tab::Setup);
  Type(Member("Text1", 12), firstFilter);
  Type(Member("Text1", 14), "VORNIK-SIM-2");
  ClickTab(forms::tab::Values);
}

QString WindowScene::Reading(int channel) {
  return Find<ReadingField>(Member("Label5", channel)).Text();
}

}  // namespace desktop
