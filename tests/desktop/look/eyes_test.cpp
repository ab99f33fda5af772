#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "desktop/binding/graph_view.h"
#include "desktop/look/look.h"
#include "desktop/services/qt_dialogs.h"
#include "desktop/widgets/card.h"
#include "desktop/widgets/legend_box.h"
#include "desktop/widgets/picture_pad.h"
#include "fit_check.h"

namespace desktop {
namespace {

/// The eyes that look at every page and dialog, before a page that is not as it is meant.
class Eyes : public testing::Test {
 protected:
  Eyes() { page_.resize(400, 300); }

  template <typename Widget>
  Widget& Put(Widget* widget, const QRect& place, const QString& name) {
    widget->setObjectName(name);
    widget->setGeometry(place);
    return *widget;
  }
  QStringList Seen() {
    page_.show();
    QTest::qWait(5);
    return tour::Misfits(page_);
  }

  QDialog page_;
  platform::RunningProgram program_{[] {}, [](int) {}};
  QtDialogs dialogs_;
  platform::Guard guard_{dialogs_, program_};
  platform::CWGraph graph_;
  platform::DrawnPicture drawn_;
};

TEST_F(Eyes, FindNothingWhereAllIsWell) {
  Put(new QLabel("a name", &page_), {10, 10, 200, 30}, "name");
  Put(new QLineEdit(&page_), {10, 50, 200, 30}, "field");
  Put(new QPushButton("press", &page_), {10, 90, 200, 30}, "button");
  Put(new GraphView(graph_, guard_, &page_), {10, 130, 380, 160}, "graph");
  EXPECT_EQ(Seen(), QStringList());
}

TEST_F(Eyes, SeeAWordThatIsCutAndAFieldThatIsCoveredOrReachesOut) {
  Put(new QLabel("a name that is too long for it", &page_), {10, 10, 40, 30}, "name");
  Put(new QLineEdit(&page_), {10, 50, 200, 30}, "below");
  Put(new QLineEdit(&page_), {100, 50, 150, 30}, "above");
  Put(new QLineEdit(&page_), {300, 90, 150, 30}, "far");
  const QStringList seen = Seen();
  EXPECT_TRUE(seen.contains("the text of name is cut")) << seen.join("; ").toStdString();
  EXPECT_TRUE(seen.contains("below is covered by above")) << seen.join("; ").toStdString();
  EXPECT_FALSE(seen.filter("far reaches out of").isEmpty()) << seen.join("; ").toStdString();
}

TEST_F(Eyes, SeeEdgesThatMissEachOtherByAFewPixels) {
  Put(new QLineEdit(&page_), {10, 10, 200, 30}, "first");
  Put(new QLineEdit(&page_), {12, 50, 201, 30}, "second");
  Put(new QPushButton("a", &page_), {250, 11, 60, 30}, "beside");
  const QStringList seen = Seen();
  EXPECT_TRUE(seen.contains("first and second miss each other's left edge by 2"));
  EXPECT_TRUE(seen.contains("first and second miss each other's right edge by 3"));
  EXPECT_TRUE(seen.contains("first and beside miss each other's upper edge by 1"));
  EXPECT_TRUE(seen.contains("first and beside miss each other's lower edge by 1"));
  EXPECT_EQ(seen.size(), 4) << seen.join("; ").toStdString();
}

TEST_F(Eyes, SeeThePaintedCaptionOfAnAxisThatLosesItsLowerHalf) {
  auto& graph = Put(new GraphView(graph_, guard_, &page_), {10, 10, 380, 160}, "graph");
  graph_.XAxis.Caption = "x * 400 samples;";
  graph.axisRect()->setAutoMargins(QCP::msNone);
  graph.axisRect()->setMargins(QMargins(50, 20, 20, 34));
  graph.replot();
  EXPECT_EQ(Seen(), QStringList{"graph is cut at its lower edge"});
}

TEST_F(Eyes, SeeAPaintedNameThatLosesItsEnd) {
  Put(new LegendBox(&page_), {10, 10, 90, 30}, "box").setText("Current Sensor A");
  EXPECT_FALSE(Seen().filter("the name \"Current Sensor A\" is cut").isEmpty());
}

TEST_F(Eyes, SeeATextOfThePictureThatLeavesIt) {
  auto& pad = Put(new PicturePad(drawn_, &page_), {0, 0, 200, 200}, "picture");
  pad.Place({0, 0}, 200);
  drawn_.Scale({-1005, -1005}, {1005, 1005});
  drawn_.MoveTo({-1100, 0});
  drawn_.Print("180°");
  EXPECT_EQ(Seen(), QStringList{"a text of picture is cut"});
}

}  // namespace
}  // namespace desktop
