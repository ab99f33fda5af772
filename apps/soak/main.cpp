// Records for a given time with the whole program, visits all views before and behind that where it
// is asked to, and tells what that took of the computer.

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>
#include <array>
#include <chrono>
#include <cstdint>
#include <exception>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "adapters/steady_clock.h"
#include "adapters/system_capture_layer.h"
#include "adapters/windows1252.h"
#include "capture/modes.h"
#include "desktop/desktop_program.h"
#include "desktop/look/look.h"
#include "first_number.h"
#include "processor_time.h"
#include "resources.h"
#include "system/process.h"

namespace soak {

namespace {

constexpr int LookMs = 20;
constexpr int StartMs = 500;
/// A reading of what the recording takes begins when its first ring is written.
constexpr int WarmMs = 1500;
/// How often a recording tells what it holds of the computer.
constexpr int ResourcesMs = 10'000;
/// In the order of a visit; the tab that is left last has nothing that runs.
constexpr std::array Tabs = {forms::tab::Values,   forms::tab::Phasor, forms::tab::Waveforms,
                             forms::tab::Recorder, forms::tab::Report, forms::tab::Setup,
                             forms::tab::Info};

/// What is recorded, as the arguments tell it.
struct Plan {
  /// A part of the adapter's name.
  std::string Adapter;
  std::size_t Format = 0;
  int Ms = 0;
  int Recordings = 1;
  std::string First;
  std::string Second;
  /// How long each view is visited before and behind the recordings; 0 for no visit.
  int ViewMs = 0;
};

Plan PlanOf(const QStringList& arguments) {
  constexpr qsizetype Least = 6;
  constexpr qsizetype Most = 8;
  if (arguments.size() < Least || arguments.size() > Most) {
    throw std::invalid_argument(
        "usage: vornik_soak ADAPTER FORMAT(0..2) SECONDS RECORDINGS FIRST-ID [SECOND-ID "
        "[SECONDS-A-VIEW]]");
  }
  return {arguments[1].toStdString(),
          arguments[2].toULongLong(),
          static_cast<int>(arguments[3].toDouble() * 1000),
          arguments[4].toInt(),
          arguments[5].toStdString(),
          arguments.value(Least).toStdString(),
          static_cast<int>(arguments.value(Least + 1).toDouble() * 1000)};
}

/// Runs the recordings one behind the other, and prints a line an event.
class Soak {
 public:
  Soak(formroutines::Application& program, Plan plan)
      : program_(program), main_(program.Windows.Main), plan_(std::move(plan)) {
    look_.callOnTimeout([this] { Look(); });
    look_.start(LookMs);
    resources_.callOnTimeout([] { TellResources("recording"); });
  }

  void SetUp() {
    ChooseAdapter();
    main_.Text1[forms::setup_field::Content1].Text = plan_.First;
    main_.Text1[forms::setup_field::Content2].Text = plan_.Second;
    Visit(0, "before", [this] {
      main_.TabStrip1.SelectedTab = forms::tab::Recorder;
      main_.Option2[plan_.Format].Value = true;
      Start();
    });
  }

 private:
  void ChooseAdapter() {
    const std::vector<std::string> names = main_.Combo1.List;
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (names[i].find(plan_.Adapter) == std::string::npos) continue;
      main_.Combo1.ListIndex = static_cast<std::int32_t>(i);
      return;
    }
    throw std::invalid_argument("no adapter " + plan_.Adapter);
  }

  /// Visits the views from this one on, each with its run where it has one, which ends with the
  /// tab. A recording gets its STOP, since the lines of the next one are numbered on without it.
  void Visit(std::size_t view, const char* when, std::function<void()> then) {
    if (plan_.ViewMs == 0 || view == Tabs.size()) return then();
    main_.TabStrip1.SelectedTab = Tabs[view];
    // No user has found the button before the view that was left has come to rest.
    QTimer::singleShot(StartMs, &look_, [this, view] {
      firstNumber_.Press();
      PressRun(Tabs[view]);
      WaitForNumber(Tabs[view]);
    });
    QTimer::singleShot(plan_.ViewMs, &look_, [this, view, when, then = std::move(then)]() mutable {
      TellResources(when);
      main_.CWButton3.Value = false;
      Visit(view + 1, when, std::move(then));
    });
  }

  void PressRun(std::int16_t tab) {
    for (const packetroutines::Mode& mode : packetroutines::Modes) {
      if (mode.Tab != tab || mode.RunButton == nullptr) continue;
      mode.RunButton(main_.Buttons()).Value = true;
    }
  }

  void WaitForNumber(std::int16_t tab) {
    if (tab == forms::tab::Values) {
      firstNumber_.WaitFor("values", [this]() -> std::string { return main_.Label5[0].Caption; });
    }
    if (tab == forms::tab::Phasor) {
      firstNumber_.WaitFor("phasor", [this]() -> std::string { return main_.Grid1.Cell[1][1]; });
    }
  }

  void Start() {
    main_.CWButton3.Value = true;
    resources_.start(ResourcesMs);
    QTimer::singleShot(WarmMs, &look_, [this] {
      Tell("begins", "rss_kb", ResidentKb());
      processorMs_ = ProcessorMs();
      taken_.start();
    });
    QTimer::singleShot(plan_.Ms, &look_, [this] { Stop(); });
  }

  void Stop() {
    resources_.stop();
    const double share = (ProcessorMs() - processorMs_) / static_cast<double>(taken_.elapsed());
    Tell("ends", "rss_kb", ResidentKb());
    Tell("took", "cpu_percent", share * 100);
    main_.CWButton3.Value = false;
    std::cout << "file " << program_.Config.Settings.StoragePath << "/"
              << program_.Acquisition.State.RecordFileName << std::endl;
    Tell("behind", "rss_kb", ResidentKb());
    ++done_;
    if (done_ < plan_.Recordings) {
      // The name of a recording is its second.
      QTimer::singleShot(StartMs, &look_, [this] { Start(); });
    } else {
      Visit(0, "behind", [] { QApplication::quit(); });
    }
  }

  template <typename Value>
  void Tell(const char* event, const char* what, Value value) const {
    std::cout << event << " " << done_ + 1 << " " << what << " " << value << std::endl;
  }

  static void TellResources(const char* when) {
    std::cout << "resources " << when << " " << ResidentKb() << " " << Handles() << " " << Threads()
              << std::endl;
  }

  /// Tells what the page says of the disk and of the bus, and closes boxes, which nobody sits at.
  void Look() {
    const std::string words[] = {main_.OnDisk[0].Caption, main_.OnDisk[1].Caption,
                                 main_.NotStored.Caption,
                                 main_.QuietLine[forms::quiet_line::Recorder].Caption};
    for (std::size_t i = 0; i < said_.size(); ++i) {
      if (words[i] == said_[i]) continue;
      said_[i] = words[i];
      std::cout << (i < main_.OnDisk.size() ? "page " : "line ") << words[i] << std::endl;
    }
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    std::cout << "box " << box->property("text").toString().simplified().toStdString() << std::endl;
    box->reject();
  }

  formroutines::Application& program_;
  forms::Main& main_;
  Plan plan_;
  QTimer look_;
  QTimer resources_;
  QElapsedTimer taken_;
  FirstNumber firstNumber_;
  double processorMs_ = 0;
  int done_ = 0;
  std::array<std::string, 4> said_;
};

int Run() {
  const Plan plan = PlanOf(QApplication::arguments());
  const adapters::SteadyClock clock;
  const adapters::Windows1252 code;
  adapters::SystemCaptureLayer capture(clock, {});
  desktop::DesktopProgram program({capture, capture, code, clock});
  // A box may come at the start already.
  Soak soak(program.Application(), plan);
  program.Load();
  QTimer::singleShot(StartMs, QApplication::instance(), [&] { soak.SetUp(); });
  return QApplication::exec();
}

}  // namespace

}  // namespace soak

int main(int argc, char** argv) {
  host::GiveLargeMemoryBack();
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Vornik"));
  QApplication::setQuitOnLastWindowClosed(false);
  desktop::look::Apply(application);
  try {
    return soak::Run();
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
    return 1;
  }
}
