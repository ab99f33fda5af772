#pragma once

#include <cstdint>

#include "base/number_text.h"
#include "capture/acquisition_state.h"
#include "config/settings.h"
#include "forms/phasor_controls.h"
#include "platform/controls/drawn_picture.h"

namespace subroutines {

/// The angles of one block in degrees, positive where the channel lags: currents A, B, C, N behind
/// the voltage of their letter, then voltages A, B, C, N behind voltage A.
struct PhaseShifts {
  double ShiftIA = 0;
  double ShiftIB = 0;
  double ShiftIC = 0;
  double ShiftIN = 0;
  /// Voltage A behind itself.
  double ShiftUA = 0;
  double ShiftUB = 0;
  double ShiftUC = 0;
  double ShiftUN = 0;
};

/// The circle diagram with eight vectors, and the table of magnitudes and angles beside it.
class PhasorDiagram {
 public:
  PhasorDiagram(forms::PhasorControls& phasor, const packetroutines::ReadingFields& readings,
                const config::RunSettings& present, const platform::NumberText& numbers);

  /// Sets the headings and the columns of the table.
  void HeadTable();
  /// Clears the picture and draws its background.
  void DrawPhasorGrid();
  /// Chooses the full scales, draws the vectors and fills the table. Failure 11 where a full scale
  /// is 0, that is for a current above the ladder.
  void DrawPhasors(float peakCurrent, float peakVoltage, const PhaseShifts& shifts);

 private:
  void DrawSpokes();
  void DrawCircles();
  void DrawAngleLabels();
  void ChooseFullScales(float peakCurrent, float peakVoltage);
  void PrintFullScales();
  void DrawPhasor(std::int16_t fullScale, double angle1, std::size_t channel, double angle2);
  void DrawHead(platform::Point tip, double angle, platform::Rgb colour);

  forms::PhasorControls& phasor_;
  platform::DrawnPicture& picture_;
  const packetroutines::ReadingFields& readings_;
  const config::RunSettings& present_;
  const platform::NumberText& numbers_;
  /// Value of the outermost circle, in the chosen units.
  std::int16_t fullScaleCurrent_ = 0;
  std::int16_t fullScaleVoltage_ = 0;
};

}  // namespace subroutines
