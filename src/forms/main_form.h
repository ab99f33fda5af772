#pragma once

#include <array>

#include "platform/buttons.h"
#include "platform/check_box.h"
#include "platform/combo_box.h"
#include "platform/cw_graph.h"
#include "platform/grid.h"
#include "platform/label.h"
#include "platform/option_button.h"
#include "platform/quiet_line.h"
#include "platform/status_bar.h"
#include "platform/tab_strip.h"
#include "platform/text_box.h"
#include "platform/timer.h"
#include "platform/window.h"

namespace forms {

/// What a press of the run button of Values and Phasor does next.
inline constexpr const char* StopTip = "'Stop' quit actual measurements";
inline constexpr const char* RunValuesTip = "'Run' starts aquiring samples to calculate RMS";
inline constexpr const char* RunPhasesTip = "'Run' starts aquiring samples estimate phase values";

/// The rows of `Main.Label2`: the captions beside the fields of the Setup view.
namespace setup_caption {
inline constexpr std::size_t Adapter = 0;
inline constexpr std::size_t FilterCondition = 1;
inline constexpr std::size_t StoragePath = 2;
inline constexpr std::size_t Printer = 3;
inline constexpr std::size_t Content1 = 4;
inline constexpr std::size_t Content2 = 5;
inline constexpr std::size_t Decimals = 6;
inline constexpr std::size_t Interval = 7;
inline constexpr std::size_t IntervalUnit = 8;
inline constexpr std::size_t Frequency = 9;
inline constexpr std::size_t FrequencyUnit = 10;
inline constexpr std::size_t CurrentUnit = 11;
inline constexpr std::size_t VoltageUnit = 12;
inline constexpr std::size_t FirstNames = 13;
inline constexpr std::size_t SecondNames = 14;
inline constexpr std::size_t Samplings = 15;
inline constexpr std::size_t SamplingsNote = 16;
inline constexpr std::size_t Count = 17;
}  // namespace setup_caption

/// The fields of `Main.Text1` on the Setup view.
namespace setup_field {
inline constexpr std::size_t FilterCondition = 0;
inline constexpr std::size_t BaseFrequency = 1;
inline constexpr std::size_t Samplings = 2;
inline constexpr std::size_t StoragePath = 3;
/// The names of the eight channels, one field behind the other.
inline constexpr std::size_t FirstName = 4;
inline constexpr std::size_t LastName = 11;
inline constexpr std::size_t Content1 = 12;
inline constexpr std::size_t Interval = 13;
inline constexpr std::size_t Content2 = 14;
inline constexpr std::size_t Count = 15;
}  // namespace setup_field

/// The rows of `Main.QuietLine`: the views that have one.
namespace quiet_line {
inline constexpr std::size_t Values = 0;
inline constexpr std::size_t Phasor = 1;
inline constexpr std::size_t Waveforms = 2;
inline constexpr std::size_t Recorder = 3;
inline constexpr std::size_t Count = 4;
}  // namespace quiet_line

/// The main window: its controls with the captions, tips and states of the design. Index and number
/// of a control have meaning: channel i is `Label5[i]`, an even `Option3` is the first stream.
class Main {
 public:
  explicit Main(platform::TimerQueue& timers);

  /// Gives the run buttons of Values and Phasor that are off the tip of an idle button, where they
  /// still wear the one of a running view.
  void ShowIdleTips();

  platform::Window Window;
  platform::TabStrip TabStrip1;
  platform::StatusBar StatusBar1;

  /// The no-data watchdog.
  platform::Timer Timer1;
  /// Restarts capture after a block.
  platform::Timer Timer2;
  /// Gives the run buttons back.
  platform::Timer Timer3;

  /// Station choices in pairs: Values 0 and 1, Waveforms 2 and 3, Phasor 4 and 5, Report 6 and 7.
  std::array<platform::OptionButton, 8> Option3;
  /// Capture is running: Values, Phasor, Waveforms, Report.
  std::array<platform::Shape, 4> Shape12;
  /// Logos: Waveforms, Recorder, Report, Setup, Values, Phasor.
  std::array<platform::PictureBox, 6> Picture1;

  /// Why a view shows nothing, beside its run button.
  std::array<platform::QuietLine, quiet_line::Count> QuietLine;

  // Information page. Label3 also holds captions of the Recorder view.
  std::array<platform::Label, 20> Label1;
  /// 0 is the support address; 5, 6, 9, 22 to 24 and 28 stand on the Recorder view.
  std::array<platform::Label, 29> Label3;
  /// Opens the revision history.
  platform::Label Label4;
  platform::PictureBox Picture4;

  // Values view.
  platform::CWButton CWButton4;
  /// Real-time value.
  platform::CheckBox Check5;
  std::array<platform::Label, 8> Label5;
  std::array<platform::Label, 8> Label6;
  /// 0 and 1 are reserved for quality bits; 8 to 15 are the DC labels of channels 0 to 7.
  std::array<platform::Label, 16> Label12;
  /// Heading of the station choice.
  platform::Label Label16;

  // Phasor view.
  platform::Frame Frame2;
  platform::Frame Frame3;
  platform::CWButton CWButton2;
  platform::PictureBox phasordiagram;
  platform::Grid<9, 3> Grid1;
  platform::Label Label17;
  /// Full scales: current and voltage.
  std::array<platform::ComboBox, 2> Combo5;
  /// Full scales are chosen automatically.
  platform::CheckBox Check6;

  // Waveforms view.
  platform::Frame Frame1;
  platform::CWButton CWButton1;
  platform::CommandButton Command1;
  platform::CWGraph CWGraph1;
  std::array<platform::CheckBox, 8> Check2;
  /// Graph modes: pan, zoom, autoscaling.
  std::array<platform::OptionButton, 3> sevOption1;

  // Recorder view.
  platform::CWButton CWButton3;
  /// File formats: text, worksheet, COMTRADE.
  std::array<platform::OptionButton, 3> Option2;
  /// Heading, first path, heading, progress, second path.
  std::array<platform::Label, 5> Label10;
  platform::CWGraph CWGraph2;
  platform::CommandButton Command9;
  /// Trigger settings in the fields 2 to 5 and 8.
  std::array<platform::TextBox, 9> Text3;
  platform::Shape Shape9;
  platform::Frame Frame4;
  std::array<platform::OptionButton, 3> Option1;

  // Report view.
  platform::CWButton Command2;
  platform::CommandButton Command4;
  platform::Label sevLabel4;
  std::array<platform::Label, 23> Label7;
  std::array<platform::Label, 23> Label8;

  // Setup view.
  platform::ComboBox Combo1;
  platform::ComboBox Combo2;
  platform::ComboBox Combo3;
  std::array<platform::ComboBox, 2> Combo4;
  std::array<platform::TextBox, setup_field::Count> Text1;
  platform::CommandButton Command3;
  platform::CommandButton Command7;
  /// DC labels on the Values view.
  platform::CheckBox Check4;
  std::array<platform::Label, setup_caption::Count> Label2;
  platform::Frame Frame5;
  /// Name and version of the program.
  platform::Label Label13;
  /// What a user can do about interfaces that cannot capture.
  platform::Label CaptureAdvice;

  // Controls without a view of their own.
  platform::PictureBox Picture2;
  platform::PictureBox Picture3;
  platform::PictureBox Picture5;
  platform::PictureBox Picture6;
  /// A leftover that nothing shows.
  platform::CommandButton Command8;

 private:
  void DescribeTabs();
  void DescribeStatusBar();
  void DescribeValues();
  void DescribePhasor();
  void DescribeWaveforms();
  void DescribeRecorder();
  void DescribeReport();
  void DescribeSetup();
  void DescribeSetupTips();
  void GroupOptions();
};

}  // namespace forms
