#pragma once

#include <string>

#include "base/number_text.h"
#include "base/program.h"
#include "capture/acquisition_state.h"
#include "capture/block_arrays.h"
#include "capture/button_release.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "capture/no_data_watchdog.h"
#include "capture/packet_dispatcher.h"
#include "capture/record_rings.h"
#include "capture/retry_box.h"
#include "capture/sample_locator.h"
#include "capture/signal_builder.h"
#include "capture/view_restart.h"
#include "capture/waiting_line.h"
#include "config/adapter_choice.h"
#include "config/printer_list.h"
#include "config/settings.h"
#include "config/setup_view.h"
#include "config/stored_settings.h"
#include "forms/debug_window.h"
#include "forms/id_look.h"
#include "forms/main_form.h"
#include "forms/revision_history.h"
#include "measure/phase_analysis.h"
#include "measure/phasor_diagram.h"
#include "measure/scope_view.h"
#include "measure/values_view.h"
#include "platform/controls/canvas.h"
#include "platform/controls/timer.h"
#include "platform/services/calendar.h"
#include "platform/services/capture_object.h"
#include "platform/services/clipboard.h"
#include "platform/services/code_page.h"
#include "platform/services/dialogs.h"
#include "platform/services/event_queue.h"
#include "platform/services/file_system.h"
#include "platform/services/mouse_pointer.h"
#include "platform/services/print_surface.h"
#include "platform/services/services.h"
#include "platform/services/settings_store.h"
#include "platform/services/system_services.h"
#include "recorder/reading/record_analysis.h"
#include "recorder/session/recording_session.h"
#include "recorder/session/trigger_block.h"
#include "recorder/writing/writing.h"
#include "report/report_analysis.h"
#include "report/report_print.h"
#include "report/report_view.h"
#include "report/stream_finder.h"
#include "report/waveform_print.h"
#include "shell/form_layout.h"
#include "shell/info_pages.h"
#include "shell/tab_controller.h"

namespace formroutines {

/// What the program needs of the platform that it runs on.
struct Platform {
  platform::TimerQueue& Timers;
  platform::EventQueue& Events;
  platform::Dialogs& Dialogs;
  platform::Program& Program;
  platform::SettingsStore& Store;
  platform::CaptureLayer& Capture;
  const platform::CodePage& Code;
  const platform::NumberText& Numbers;
  platform::FileSystem& Files;
  platform::FolderDialog& Folders;
  platform::Printers& Printers;
  platform::PrintSurface& Surface;
  platform::Clipboard& Clipboard;
  platform::ShellLinks& Links;
  const platform::Calendar& Calendar;
  platform::MousePointer& Pointer;
  const platform::Screen& Screen;
  /// The picture of the phasor diagram.
  platform::Canvas& PhasorPicture;
};

/// The whole program below the window: it owns the shared state, builds the parts from the bottom
/// up and plugs the upper ones into the lower ones.
class Application : private config::SetupConsumers,
                    private packetroutines::BlockConsumers,
                    private packetroutines::RecordConsumer,
                    private packetroutines::ReportConsumer,
                    private packetroutines::FinderConsumer,
                    private TabViews {
 public:
  explicit Application(const Platform& platform);

  /// The load of the main window: from the settings to the first view. A failure that no trap took
  /// leaves through here.
  void Load();
  /// The end that cannot wait for a run button, such as the end of the user's session: capture is
  /// stopped, and the program ends.
  void EndSession();
  /// Finishes the files that are still open; the last that is done before the process is left.
  void CloseFiles() { writing_.Worksheet.Finish(); }

  forms::Main Main;
  forms::Revisionhistory Revisionhistory;
  forms::DebugWindow DebugWindow;
  forms::IDlook IDlook;
  config::Settings Settings;
  config::RunSettings Present;
  packetroutines::AcquisitionState State;
  packetroutines::BlockArrays Block;
  packetroutines::RecordRings Rings;

 private:
  void CheckScreen();
  void PrepareStorage();
  void FormSetup();
  void LoadViews();
  void ReserveMemory();
  void SetFlags();

  void RebuildBlockArrays(std::int32_t baseSamples) override;
  void ShowChannelNames() override;
  void StationChosen() override;
  void PlotBlock(const char* mode) override;
  void CalculateValues() override;
  void ClearValues() override;
  void UpdatePhases() override;
  void BlockShown() override;
  void WriteRecordBlock(std::int16_t stream) override;
  std::string ReportAnalyse(const packetroutines::PacketBytes& bytes) override;
  void AddStreamToList(const std::string& id) override;
  void UnloadIDlook() override;
  void ShowFileFormat() override;
  void ReportLayout() override;

  Platform platform_;
  platform::Services services_;
  subroutines::StoredSettings stored_;
  packetroutines::CaptureSession capture_;
  packetroutines::RetryBox trouble_;
  packetroutines::SampleLocator locator_;
  packetroutines::SignalBuilder builder_;
  packetroutines::PacketDispatcher dispatcher_;
  subroutines::ViewContext context_;
  subroutines::ValuesView values_;
  subroutines::ScopeView scope_;
  subroutines::PhasorDiagram phasors_;
  subroutines::PhaseAnalysis phases_;
  subroutines::SetupView setup_;
  subroutines::AdapterChoice adapters_;
  subroutines::PrinterChoices printers_;
  packetroutines::RecorderServices recorderServices_;
  packetroutines::Writing writing_;
  packetroutines::RecordAnalysis analysis_;
  subroutines::RecordingSession recording_;
  subroutines::TriggerBlock trigger_;
  TabController tabs_;
  packetroutines::NoDataWatchdog watchdog_;
  packetroutines::ViewRestart restart_;
  packetroutines::ButtonRelease release_;
  packetroutines::WaitingLine waiting_;
  packetroutines::ReportAnalysis frameAnalysis_;
  subroutines::ReportView report_;
  subroutines::PrintNotice printNotice_;
  subroutines::PrintParts printing_;
  subroutines::ReportPrint reportPrint_;
  subroutines::WaveformPrint waveformPrint_;
  packetroutines::StreamFinder finder_;
  InfoPages pages_;
  FormLayout resize_;
};

}  // namespace formroutines
