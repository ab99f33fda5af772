#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>

#include "shell/application.h"
#include "support/fake_platform.h"
#include "system/computer_files.h"

namespace bench {

/// The event queue and the capture of a measured path: they keep no journal, which would be most of
/// what is measured.
class BenchEvents : public platform::EventQueue {
 public:
  void Pump() override {}
  void WaitMs(std::int32_t) override {}
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
    std::optional<std::uint64_t> Dropped() override { return std::nullopt; }

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

/// The platform that the tests play; a benchmark that meets a box went wrong.
class BenchPlatform : public support::FakePlatform {
 public:
  BenchPlatform() {
    Dialogs.WhileOpen = [this] {
      std::fprintf(stderr, "unexpected box: %s\n", Journal.back().c_str());
      std::abort();
    };
  }

  BenchEvents Quiet;
  BenchCapture Bus;
  BenchFiles Disk;
};

/// The whole program on a platform that costs next to nothing.
struct BenchScene : BenchPlatform {
  formroutines::Application App;

  /// Starts the program on the Values view with these content filters.
  BenchScene(const std::string& first, const std::string& second)
      : App({Timers, Quiet, Dialogs, Runtime, Store, Bus, Code, Numbers, Disk, Links, Calendar}) {
    App.Load();
    App.Windows.Main.TabStrip1.SelectedTab = forms::tab::Values;
    App.Windows.Main.Text1[forms::setup_field::Content2].Text = second;
    App.Windows.Main.Text1[forms::setup_field::Content1].Text = first;
    App.Windows.Main.Combo3.ListIndex = 2;
  }

  /// Hands one frame over, and lets the restart timer run where the frame completed a block.
  void Receive(std::span<const std::uint8_t> frame) {
    Bus.Channel->OnPacket({frame, frame.size()});
    if (Bus.Running) return;
    Clock.Advance(std::chrono::milliseconds(100));
    Timers.FireDue();
  }
};

}  // namespace bench
