// The light around a button that runs.

#include "desktop/widgets/run_indicator.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

namespace desktop {
namespace {

TEST(RunIndicators, ShineBehindTheirButtonAndTakeNoClick) {
  QWidget page;
  page.resize(200, 100);
  QPushButton button(&page);
  int clicks = 0;
  QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
  auto& indicator = *new RunIndicator(button);
  button.setGeometry(40, 30, 100, 40);
  page.show();

  const QObjectList& stack = page.children();
  EXPECT_LT(stack.indexOf(&indicator), stack.indexOf(&button));
  EXPECT_TRUE(indicator.geometry().contains(button.geometry().adjusted(-1, -1, 1, 1)));
  QTest::mouseClick(page.childAt(button.geometry().center()), Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace desktop
