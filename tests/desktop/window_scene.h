#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDialog>
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <optional>

#include "adapters/steady_clock.h"
#include "adapters/system_capture_layer.h"
#include "adapters/windows1252.h"
#include "desktop/desktop_program.h"

namespace desktop {

/// A scene in the real window: the whole program on the simulated bus, with settings of its own.
/// The end of the program ends the scene instead of the process.
class WindowScene : public testing::Test {
 protected:
  static constexpr int PatienceMs = 8000;
  static constexpr int InfoTab = 1;
  static constexpr int ValuesTab = 2;
  static constexpr int RecorderTab = 5;
  static constexpr int SetupTab = 7;
  static constexpr int ExitTab = 8;

  /// `interfaces` lists the network interfaces of the scene; by default there are none.
  explicit WindowScene(adapters::SystemCaptureLayer::InterfaceLister interfaces = NoInterfaces);
  ~WindowScene() override;

  /// Puts the program together; settings that the scene wrote before hold for it.
  void Build();
  void Start();
  /// Gives the window with its frame this size.
  void ResizeFrame(QSize size);
  /// Sets the two content filters of the simulated bus and goes to the Values view.
  void GoMeasure(const char* firstFilter = "VORNIK-SIM-1");

  template <typename Widget>
  Widget& Find(const QString& name) {
    auto* widget = dynamic_cast<Widget*>(program_->Window().findChild<QWidget*>(name));
    if (widget == nullptr) throw std::runtime_error("no widget " + name.toStdString());
    return *widget;
  }
  QString Reading(int channel);
  void Click(const QString& name);
  void ClickTab(int tab);
  void Type(const QString& field, const QString& text);
  static bool WaitFor(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, PatienceMs);
  }
  /// The text that the settings file holds under a key.
  QString Stored(const QString& key);
  /// Writes a text to the settings file, for a program that is yet to be built.
  void Store(const QString& key, const QString& text);
  /// Works once on the next dialog that opens.
  void OnDialog(std::function<void(QDialog&)> work);

  forms::Main& Form() { return program_->Application().Windows.Main; }
  formroutines::Application& Program() { return program_->Application(); }

  static std::vector<adapters::NetworkInterface> NoInterfaces() { return {}; }

  QTemporaryDir home_;
  adapters::SteadyClock clock_;
  adapters::Windows1252 code_;
  adapters::SystemCaptureLayer capture_;
  std::optional<int> exitCode_;
  std::optional<DesktopProgram> program_;
};

/// The name of a member of a control array.
QString Member(const char* array, int index);

}  // namespace desktop
