// The card that reads samples aloud beside the line of a graph.

#include "desktop/widgets/read_out_card.h"

#include <gtest/gtest.h>

#include <QTest>

#include "paintings.h"

namespace desktop {
namespace {

TEST(ReadOutCards, ShowOtherValuesOfTheSameWidth) {
  QWidget graph;
  graph.resize(400, 300);
  ReadOutCard card(&graph);
  card.Tell("sample 1", {{Qt::red, "Current Sensor A", "1.000"}});
  card.show();
  graph.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&graph));
  QTest::qWait(20);
  const QImage before = card.grab().toImage();
  const Paintings paintings(card);

  card.Tell("sample 2", {{Qt::red, "Current Sensor A", "7.000"}});
  QTest::qWait(50);

  EXPECT_GT(paintings.Count, 0);
  EXPECT_EQ(card.size(), before.size());
  EXPECT_NE(card.grab().toImage(), before);
}

}  // namespace
}  // namespace desktop
