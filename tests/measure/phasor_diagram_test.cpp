#include "measure/phasor_diagram.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "support/scene.h"

namespace {

using support::Scene;
using testing::Contains;
using Calls = std::vector<std::string>;

/// The steps of a ladder, each with the line that is printed for it.
struct Step {
  float Value;
  std::string Line;
};
using Ladder = std::vector<Step>;

float JustAbove(float value) {
  return std::nextafter(value, std::numeric_limits<float>::infinity());
}

/// A diagram whose calls are written down, with magnitudes set by the test.
class Diagram : public ::testing::Test {
 protected:
  Diagram() {
    scene.Start();
    scene.Main.Combo3.ListIndex = 2;
    canvas.Calls.clear();
  }
  std::string FullScaleLine(float current, float voltage, const std::string& name) {
    canvas.Calls.clear();
    diagram.DrawPhasors(current, voltage, {});
    for (const std::string& call : canvas.Calls) {
      if (call.rfind("print " + name, 0) == 0) return call.substr(6);
    }
    return "";
  }

  Scene scene;
  support::RecordingCanvas& canvas = scene.PhasorPicture;
  subroutines::PhasorDiagram diagram{scene.Main, scene.State, scene.Present, scene.Numbers};
};

TEST_F(Diagram, DrawsItsBackgroundStepByStep) {
  diagram.DrawPhasorGrid();

  const Calls expected = {
      "clear",
      "scale (-1005,-1005) (1005,1005)",
      "style 4",
      "line (-1000,0) (1000,0)",
      "line (0,-1000) (0,1000)",
      "line (-707,-707) (707,707) 0/255/255",
      "line (-707,707) (707,-707) 0/255/255",
      "style 2",
      "style 2",
      "line (0,0) (866,500) 0/0/0",
      "style 2",
      "line (0,0) (500,866) 0/0/0",
      "style 2",
      "style 2",
      "line (0,0) (-500,866) 0/0/0",
      "style 2",
      "line (0,0) (-866,500) 0/0/0",
      "style 2",
      "style 2",
      "line (0,0) (-866,-500) 0/0/0",
      "style 2",
      "line (0,0) (-500,-866) 0/0/0",
      "style 2",
      "style 2",
      "line (0,0) (500,-866) 0/0/0",
      "style 2",
      "line (0,0) (866,-500) 0/0/0",
      "style 0",
      "circle (0,0) r1000 0/0/0",
      "style 4",
      "circle (0,0) r875 0/0/0",
      "style 4",
      "circle (0,0) r750 0/0/0",
      "style 4",
      "circle (0,0) r625 0/0/0",
      "style 4",
      "circle (0,0) r500 0/0/0",
      "style 4",
      "circle (0,0) r375 0/0/0",
      "style 4",
      "circle (0,0) r250 0/0/0",
      "style 4",
      "circle (0,0) r125 0/0/0",
      "fore 0/0/255",
      "move (0,-1000)",
      "print 90°",
      "move (-1000,0)",
      "print 180°",
      "move (0,950)",
      "print 270°",
      "move (950,0)",
      "print 0°",
      "fore 0/0/0",
  };
  EXPECT_EQ(canvas.Calls, expected);
}

TEST_F(Diagram, DrawsItsVectorsStepByStep) {
  scene.State.RmsValues = {1000, 500, 0, 100, 400, 200, 100, 40};
  subroutines::PhaseShifts shifts;
  shifts.ShiftIB = 30;
  shifts.ShiftUB = 60;
  shifts.ShiftUC = 180;

  diagram.DrawPhasors(1000, 400, shifts);

  const Calls expected = {
      "fore 0/0/0",
      "move (-950,950)",
      "print FS current=1000 (125)A",
      "move (380,950)",
      "print FS voltage=400 (50)kV",
      // I1 on the full circle, to the right.
      "width 5",
      "line (0,0) (1000,0) 255/0/0",
      "width 3",
      "lineto (953,17) 255/0/0",
      "move (1000,0)",
      "lineto (953,-17) 255/0/0",
      "move (1000,0)",
      "fore 0/0/0",
      "print I1",
      // I2 lags by 30 + 60 degrees: straight down.
      "width 5",
      "line (0,0) (0,500) 255/0/0",
      "width 3",
      "lineto (-17,453) 255/0/0",
      "move (0,500)",
      "lineto (17,453) 255/0/0",
      "move (0,500)",
      "fore 0/0/0",
      "print I2",
      // I3 is silent: its head stands around the origin. It lags by half a turn, as U3 does.
      "width 5",
      "line (0,0) (0,0) 255/0/0",
      "width 3",
      "lineto (47,-17) 255/0/0",
      "move (0,0)",
      "lineto (47,17) 255/0/0",
      "move (0,0)",
      "fore 0/0/0",
      "print I3",
      // The neutral current: a bare shaft.
      "width 5",
      "line (0,0) (100,0) 255/0/0",
      "width 3",
      "line (0,0) (1000,0) 0/255/0",
      "width 3",
      "lineto (953,17) 0/255/0",
      "move (1000,0)",
      "lineto (953,-17) 0/255/0",
      "move (1000,0)",
      "fore 0/0/0",
      "print U1",
      "width 3",
      "line (0,0) (250,433) 0/255/0",
      "width 3",
      "lineto (212,401) 0/255/0",
      "move (250,433)",
      "lineto (241,384) 0/255/0",
      "move (250,433)",
      "fore 0/0/0",
      "print U2",
      "width 3",
      "line (0,0) (-250,0) 0/255/0",
      "width 3",
      "lineto (-203,-17) 0/255/0",
      "move (-250,0)",
      "lineto (-203,17) 0/255/0",
      "move (-250,0)",
      "fore 0/0/0",
      "print U3",
      "width 3",
      "line (0,0) (100,0) 0/255/0",
      "width 1",
      "fore 0/0/0",
  };
  EXPECT_EQ(canvas.Calls, expected);
}

TEST_F(Diagram, FillsItsTable) {
  scene.State.RmsValues = {1234.5, 500, 0, 100, 400, 200, 100, 40};
  subroutines::PhaseShifts shifts;
  shifts.ShiftIB = 30;
  shifts.ShiftUB = 60;
  shifts.ShiftIN = -12.3456;

  diagram.DrawPhasors(1000, 400, shifts);

  const auto& cell = scene.Main.Grid1.Cell;
  EXPECT_EQ(cell[1][1], "1,234.50");
  EXPECT_EQ(cell[1][2], "0.000");
  EXPECT_EQ(cell[2][2], "-90.000");
  EXPECT_EQ(cell[4][1], "100.00");
  EXPECT_EQ(cell[4][2], "12.346");
  EXPECT_EQ(cell[5][2], "0.000");
  EXPECT_EQ(cell[6][2], "-60.000");
  EXPECT_EQ(cell[8][1], "40.00");
}

TEST_F(Diagram, PointsU2ToTheLowerLeftWhereItLagsByAThirdOfATurn) {
  scene.State.RmsValues[5] = 400;
  subroutines::PhaseShifts shifts;
  shifts.ShiftUB = 120;

  diagram.DrawPhasors(0, 400, shifts);

  EXPECT_THAT(canvas.Calls, Contains("line (0,0) (-500,866) 0/255/0"));
}

TEST_F(Diagram, PointsU2ToTheUpperLeftWhereItLeadsByAThirdOfATurn) {
  scene.State.RmsValues[5] = 400;
  subroutines::PhaseShifts shifts;
  shifts.ShiftUB = -120;

  diagram.DrawPhasors(0, 400, shifts);

  EXPECT_THAT(canvas.Calls, Contains("line (0,0) (-500,-866) 0/255/0"));
}

TEST_F(Diagram, ClimbsTheLadderOfCurrents) {
  const Ladder ladder = {
      {100, "FS current=100 (12.5)A"},     {200, "FS current=200 (25)A"},
      {500, "FS current=500 (62.5)A"},     {1000, "FS current=1000 (125)A"},
      {2000, "FS current=2000 (250)A"},    {5000, "FS current=5000 (625)A"},
      {10000, "FS current=10000 (1250)A"},
  };
  EXPECT_EQ(FullScaleLine(0, 0, "FS current"), ladder[0].Line);
  for (const Step& step : ladder) {
    EXPECT_EQ(FullScaleLine(step.Value, 0, "FS current"), step.Line);
  }
  for (std::size_t next = 1; next < ladder.size(); ++next) {
    EXPECT_EQ(FullScaleLine(JustAbove(ladder[next - 1].Value), 0, "FS current"), ladder[next].Line);
  }
}

TEST_F(Diagram, ClimbsTheLadderOfVoltages) {
  const Ladder ladder = {
      {150, "FS voltage=150 (18.75)kV"}, {200, "FS voltage=200 (25)kV"},
      {400, "FS voltage=400 (50)kV"},    {500, "FS voltage=500 (62.5)kV"},
      {1000, "FS voltage=1000 (125)kV"}, {10000, "FS voltage=10000 (1250)kV"},
  };
  EXPECT_EQ(FullScaleLine(0, 0, "FS voltage"), ladder[0].Line);
  for (const Step& step : ladder) {
    EXPECT_EQ(FullScaleLine(0, step.Value, "FS voltage"), step.Line);
  }
  for (std::size_t next = 1; next < ladder.size(); ++next) {
    EXPECT_EQ(FullScaleLine(0, JustAbove(ladder[next - 1].Value), "FS voltage"), ladder[next].Line);
  }
}

TEST_F(Diagram, HasOneScaleForAllVoltagesAboveTheLadder) {
  EXPECT_EQ(FullScaleLine(0, 20000, "FS voltage"), "FS voltage=10000 (1250)kV");
}

TEST_F(Diagram, FailsForACurrentAboveTheLadderAfterItsScaleWasPrinted) {
  try {
    diagram.DrawPhasors(JustAbove(10000), 0, {});
    FAIL() << "no failure";
  } catch (const platform::Failure& failure) {
    EXPECT_EQ(failure.Number(), 11);
  }
  EXPECT_THAT(canvas.Calls, Contains("print FS current=0 (0)A"));
  EXPECT_EQ(canvas.Calls.back(), "print FS voltage=150 (18.75)kV");
}

TEST_F(Diagram, DoesNotFollowTheUnitsInItsScales) {
  scene.Main.Combo4[0].ListIndex = 1;

  EXPECT_EQ(FullScaleLine(5, 5, "FS current"), "FS current=100 (12.5)A");
}

}  // namespace
