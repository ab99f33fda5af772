#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/windows1252.h"
#include "platform/loop/timer_queue.h"
#include "shell/application.h"
#include "system/computer_files.h"

namespace bench {

/// Time that moves only where a benchmark moves it.
class BenchClock : public platform::Clock {
 public:
  std::chrono::nanoseconds Now() const override { return Time; }
  std::chrono::nanoseconds Time{0};
};

class BenchEvents : public platform::EventQueue {
 public:
  void Pump() override {}
  void WaitMs(std::int32_t) override {}
};

/// A benchmark that meets a box went wrong.
class BenchDialogs : public platform::Dialogs {
 public:
  platform::Answer Show(const platform::Message& message) override { Abort(message.Text); }
  void ShowTimed(const platform::TimedMessage& message) override { Abort(message.Text); }

 private:
  [[noreturn]] static void Abort(const std::string& text) {
    std::fprintf(stderr, "unexpected box: %s\n", text.c_str());
    std::abort();
  }
};

class BenchProgram : public platform::Program {
 public:
  [[noreturn]] void End() override { std::abort(); }
};

class BenchStore : public platform::SettingsStore {
 public:
  std::string Get(const std::string&, const std::string&, const std::string&,
                  const std::string& fallback) const override {
    return fallback;
  }
  void Set(const std::string&, const std::string&, const std::string&,
           const std::string&) override {}
  std::string Place(const std::string&) const override { return {}; }
};

/// One adapter that takes every setting; the benchmark hands the frames over itself.
class BenchCapture : public platform::CaptureLayer {
 public:
  std::unique_ptr<platform::CaptureObject> NewCaptureObject() override {
    auto object = std::make_unique<Object>(*this);
    Channel = object.get();
    return object;
  }
  std::unique_ptr<platform::PacketCollection> NewPacketCollection() override {
    return std::make_unique<Collection>();
  }
  std::string Advice() const override { return {}; }

  platform::CaptureObject* Channel = nullptr;
  bool Running = false;

 private:
  class OneAdapter : public platform::CaptureAdapter {
   public:
    bool IsGood() const override { return true; }
    std::string Description() const override { return "Bench"; }
    void Set(std::string_view, const Value&) override {}
  };
  class Object : public platform::CaptureObject {
   public:
    explicit Object(BenchCapture& layer) : layer_(layer) {}
    std::int32_t AdapterCount() const override { return 1; }
    platform::CaptureAdapter& Adapters(std::int32_t) override { return adapter_; }
    void SetAdapter(platform::CaptureAdapter&) override {}
    platform::CaptureAdapter& Adapter() override { return adapter_; }
    void SetWish(platform::FrameWish) override {}
    void Start() override { layer_.Running = true; }
    void Stop() override { layer_.Running = false; }
    void DeliverArrived() override {}
    platform::Presence AdapterPresence() override { return platform::Presence::There; }

   private:
    BenchCapture& layer_;
    OneAdapter adapter_;
  };
  class Collection : public platform::PacketCollection {
   public:
    void Clear() override {}
  };
};

/// The files of this computer, in a folder that is gone at the end.
class BenchFiles : public host::ComputerFiles {
 public:
  std::string DefaultFolder() const override { return folder_.path().toStdString(); }
  void EmptyFolder() const {
    const QDir folder(folder_.path());
    for (const QString& name : folder.entryList(QDir::Files)) QFile::remove(folder.filePath(name));
  }

 private:
  QTemporaryDir folder_;
};

class BenchServices : public platform::FolderDialog,
                      public platform::Printers,
                      public platform::ShellLinks,
                      public platform::Calendar,
                      public platform::MousePointer {
 public:
  std::optional<std::string> Browse(const std::string&, const std::string&) override {
    return std::nullopt;
  }
  std::vector<std::string> Names() const override { return {"Bench"}; }
  std::string Current() const override { return "Bench"; }
  void MakeCurrent(std::int32_t) override {}
  void Open(const std::string&) override {}
  void OpenFile(const std::string&, Told told) override { told(platform::open_code::Opened); }
  platform::LocalTime Now() const override { return {2024, 3, 9, 14, 5, 7}; }
  std::string GeneralText(const platform::LocalTime& moment) const override {
    return platform::DottedText(moment);
  }
  std::string MonthName(std::int32_t) const override { return "Mar"; }
  void ShowHourglass() override {}
  void ShowNormal() override {}
};

/// Paper that takes everything and shows nothing, and a clipboard like it.
class BenchPaper : public platform::PrintSurface, public platform::Clipboard {
 public:
  void Orientation(platform::PageOrientation) override {}
  void Colours(platform::ColourMode) override {}
  void DocumentName(const std::string&) override {}
  void FontName(const std::string&) override {}
  void FontSize(float) override {}
  void FontBold(bool) override {}
  void FontUnderline(bool) override {}
  void ForeColor(platform::Rgb) override {}
  void CurrentX(double) override {}
  void CurrentY(double) override {}
  void Print(const std::string&) override {}
  void PrintLine(const std::string&) override {}
  double TextWidth(const std::string&) const override { return 0; }
  void PaintPicture(const platform::Picture&, double, double, double, double) override {}
  void EndDoc(std::function<void(const platform::SentPage&)> told) override { told({}); }
  void Clear() override {}
  void SetPicture(const platform::Picture&) override {}
};

/// The whole program on a platform that costs nothing.
struct BenchScene {
  BenchClock Clock;
  platform::TimerQueue Timers{Clock};
  BenchEvents Events;
  BenchDialogs Dialogs;
  BenchProgram Program;
  BenchStore Store;
  BenchCapture Capture;
  adapters::Windows1252 Code;
  platform::NumberText Numbers;
  BenchFiles Files;
  BenchServices Services;
  BenchPaper Paper;
  platform::Screen Screen{1920 * 15, 1080 * 15};
  formroutines::Application App;

  /// Starts the program on the Values view with these content filters.
  BenchScene(const std::string& first, const std::string& second)
      : App({Timers, Events, Dialogs, Program, Store, Capture, Code, Numbers, Files, Services,
             Services, &Services, &Services, &Paper, &Paper, &Services, &Screen}) {
    App.Load();
    App.Windows.Main.TabStrip1.SelectedTab = forms::tab::Values;
    App.Windows.Main.Text1[14].Text = second;
    App.Windows.Main.Text1[12].Text = first;
    App.Windows.Main.Combo3.ListIndex = 2;
  }

  /// Hands one frame over, and lets the restart timer run where the frame completed a block.
  void Receive(std::span<const std::uint8_t> frame) {
    Capture.Channel->OnPacket({frame, frame.size()});
    if (!Capture.Running) {
      Clock.Time += std::chrono::milliseconds(100);
      Timers.FireDue();
    }
  }
};

}  // namespace bench
