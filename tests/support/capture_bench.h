#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "capture/acquisition.h"
#include "config/configuration.h"
#include "forms/windows.h"
#include "support/fake_platform.h"
#include "support/sv_frame.h"
#include "support/watch.h"

namespace support {

class MockViews : public packetroutines::BlockConsumers {
 public:
  MOCK_METHOD(void, PlotBlock, (const char* mode), (override));
  MOCK_METHOD(void, CalculateValues, (), (override));
  MOCK_METHOD(void, ClearValues, (), (override));
  MOCK_METHOD(void, UpdatePhases, (), (override));
};

class MockRecorder : public packetroutines::RecordConsumer, public packetroutines::SessionConsumer {
 public:
  MOCK_METHOD(void, NoData, (), (override));
  MOCK_METHOD(void, WriteRecordBlock, (std::int16_t stream), (override));
};

class MockReport : public packetroutines::ReportConsumer, public packetroutines::FinderConsumer {
 public:
  MOCK_METHOD(std::string, ReportAnalyse, (const packetroutines::PacketBytes& bytes), (override));
  void FrameReported(const platform::CapturedFrame&) override {}
  MOCK_METHOD(void, ReportEnded, (), (override));
  MOCK_METHOD(void, AddStreamToList, (const std::string& id), (override));
  MOCK_METHOD(void, UnloadIDlook, (), (override));
  MOCK_METHOD(void, CaptureStopped, (), (override));
  MOCK_METHOD(void, CaptureRefused, (), (override));
};

/// The tab controller's part in the core: a call is written into the journal.
class BenchTabs : public packetroutines::TabConsumer {
 public:
  explicit BenchTabs(Journal& journal) : journal_(journal) {}
  void TabChange() override {
    journal_.emplace_back("tab change");
    if (AtTabChange) AtTabChange();
  }

  std::function<void()> AtTabChange;

 private:
  Journal& journal_;
};

/// The acquisition alone on a bench: a bus on one side, and in the place of the views, the recorder
/// and the report mocks that write their calls into the journal. The contents "MU01" and "MU02"
/// mark the two streams, and a block has 400 rows.
class CaptureBench : public FakePlatform {
 public:
  CaptureBench();

  forms::Windows Windows{Timers};
  forms::Main& Main = Windows.Main;
  config::Configuration Config{Main, {Store, Numbers, Folders, Printers, Dialogs, Runtime}};
  config::Settings& Settings = Config.Settings;
  config::RunSettings& Present = Config.Present;
  platform::Services Services{Events, Dialogs, Runtime};
  packetroutines::Acquisition Core{Main, Config, {Capture, Timers, Code, Numbers, Services}};
  packetroutines::AcquisitionState& State = Core.State;
  packetroutines::BlockArrays& Block = Core.Block;
  packetroutines::RecordRings& Rings = Core.Rings;
  packetroutines::CaptureSession& Acquisition = Core.Capture;
  packetroutines::SampleLocator& Locator = Core.Locator;
  packetroutines::SignalBuilder& Builder = Core.Builder;
  packetroutines::PacketDispatcher& Dispatcher = Core.Packets;
  testing::NiceMock<MockViews> Views;
  testing::NiceMock<MockRecorder> Recorder;
  testing::NiceMock<MockReport> Report;
  BenchTabs Tabs{Journal};

  /// The start path of a view: the next frame sets the frame length, the adapter is set up and
  /// capture starts in `mode`.
  void Run(const std::string& mode);
  /// The same, the first frame received, and the journal begun anew.
  void RunWithLength(const std::string& mode, const FrameBytes& first = SvFrame().Bytes());

  void Receive(const FrameBytes& frame) { Capture.Receive(frame); }
  /// `count` frames from `make(i)`, i from 0.
  void Receive(int count, const std::function<FrameBytes(int)>& make);

  template <typename T>
  void Watch(platform::Property<T>& property, const std::string& name) {
    support::Watch(Journal, property, name);
  }
};

/// The frame `count` of a stream with one raw value in all channels, by default 1 A and 10 V.
FrameBytes PlainFrame(int count, const std::string& id = "MU01", std::int32_t raw = 1000);

/// The bytes as `SampleLocator` and `SignalBuilder` get them: the cells 0 to `upper`, the frame
/// from cell 1 on.
packetroutines::PacketBytes CellsOf(const FrameBytes& frame, std::int16_t upper);
packetroutines::PacketBytes CellsOf(const FrameBytes& frame);

/// The box as it stands where its step fails again.
inline platform::Message WithStop(platform::Message box) {
  box.BoxButtons = platform::Buttons::OkStop;
  return box;
}

}  // namespace support
