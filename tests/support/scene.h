#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "shell/application.h"
#include "support/failing_files.h"
#include "support/fake_platform.h"
#include "support/recording_canvas.h"
#include "support/sv_frame.h"

namespace support {

/// The whole program on a played platform: a bus, a user and a clock in the hands of the test.
class Scene : public FakePlatform {
 public:
  /// The program before its start, with one adapter named "Bus" and the store empty.
  Scene();
  /// Ends the program where the test left it.
  ~Scene();

  /// The files of the platform, which fail where the test wants it.
  FailingFiles Disk{Files};
  formroutines::Application App{{Timers, Events, Dialogs, Runtime, Store, Capture, Code, Numbers,
                                 Disk, Links, Calendar, &Folders, &Printers, &Surface, &Clipboard,
                                 &Pointer, &Screen, &Sleep, &Sync}};
  forms::Main& Main = App.Windows.Main;
  RecordingCanvas PhasorPicture{Main.phasordiagram};
  config::Settings& Settings = App.Config.Settings;
  config::RunSettings& Present = App.Config.Present;
  packetroutines::AcquisitionState& State = App.Acquisition.State;
  packetroutines::BlockArrays& Block = App.Acquisition.Block;

  /// Start-up, the Values tab, and the content filters "MU01" and none; the journal begins anew.
  void Start();
  /// Selects a tab, 1 to 8.
  void Select(std::int16_t tab) { Main.TabStrip1.SelectedTab = tab; }
  /// Presses the run button of the Values view and lets the first frame set the frame length.
  void RunValues();
  void Receive(const FrameBytes& frame) { Capture.Receive(frame); }
  /// `count` frames from `make(i)`, i from 0.
  void Receive(int count, const std::function<FrameBytes(int)>& make);
  /// A complete block of frames from `make`, then the restart of the next burst.
  void ReceiveBlock(const std::function<FrameBytes(int)>& make);

  const platform::Message& LastBox() const { return Dialogs.Shown.back(); }
};

/// A frame of stream `id` with every current `amps` A and every voltage `kilovolts` kV, as a sine
/// of 80 frames a period with these RMS values.
FrameBytes SineFrame(int i, double amps, double kilovolts, const std::string& id = "MU01");

}  // namespace support
