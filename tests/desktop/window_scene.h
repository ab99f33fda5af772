#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDialog>
#include <QSize>
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "adapters/steady_clock.h"
#include "adapters/system_capture_layer.h"
#include "adapters/windows1252.h"
#include "desktop/desktop_program.h"
#include "hand.h"

namespace desktop {

/// A scene in the real window: the whole program on the simulated bus, with settings of its own.
/// The end of the program ends the scene instead of the process.
class WindowScene : public testing::Test {
 protected:
  static constexpr int PatienceMs = 8000;

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

  tour::Hand Hand() { return tour::Hand(program_->Window()); }
  template <typename Widget>
  Widget& Find(const QString& name) {
    return Hand().Find<Widget>(name);
  }
  QString Reading(int channel);
  void Click(const QString& name) { Hand().Click(name); }
  void ClickTab(int tab) { Hand().ClickTab(tab); }
  void Type(const QString& field, const QString& text) { Hand().Retype(field, text); }
  static bool WaitFor(const std::function<bool()>& condition) {
    return tour::Hand::WaitFor(condition, PatienceMs);
  }
  /// The text that the settings file holds under a key.
  QString Stored(const QString& key);
  /// Writes a text to the settings file, for a program that is yet to be built.
  void Store(const QString& key, const QString& text);
  /// Works once on the next dialog that opens.
  void OnDialog(std::function<void(QDialog&)> work) { Hand().OnDialog(std::move(work)); }

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

/// What a scene in a window of this size is called.
std::string NameOfSize(const testing::TestParamInfo<QSize>& size);
/// The name of a member of a control array.
QString Member(const char* array, int index);

}  // namespace desktop
