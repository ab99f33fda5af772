#include <QImage>
#include <QScrollBar>
#include <QTest>

#include "desktop/look/casing.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/text_area.h"

namespace desktop {
namespace {

/// A long text in a low field, in windows of several factors.
class ScrollBar : public testing::TestWithParam<double> {
 protected:
  ScrollBar() {
    look::SetScale(GetParam());
    area_.setPlainText(QStringLiteral("a line\n").repeated(400));
    area_.resize(look::Scaled(200), look::Scaled(160));
    area_.show();
    QTest::qWait(20);
  }
  ~ScrollBar() override { look::SetScale(1); }

  QScrollBar& Bar() { return *area_.verticalScrollBar(); }
  /// The pixels down the middle of the bar.
  QColor At(int y) { return Bar().grab().toImage().pixelColor(Bar().width() / 2, y); }

  TextArea area_{nullptr};
};

TEST_P(ScrollBar, StandsOutFromItsGroundAndBeginsAtTheTop) {
  EXPECT_EQ(Bar().width(), look::Scaled(14));
  const int end = Bar().height() - look::Scaled(6);
  EXPECT_EQ(At(end), look::Field);
  EXPECT_GE(look::Contrast(At(look::Scaled(14)), look::Field), 3);
  Bar().setValue(Bar().maximum());
  EXPECT_GE(look::Contrast(At(end), look::Field), 3);
  EXPECT_EQ(At(look::Scaled(14)), look::Field);
}

TEST_P(ScrollBar, IsDraggedFromEndToEnd) {
  const QPoint start(Bar().width() / 2, look::Scaled(14));
  QTest::mousePress(&Bar(), Qt::LeftButton, {}, start);
  QTest::mouseMove(&Bar(), start + QPoint(0, Bar().height() / 2));
  EXPECT_GT(Bar().value(), Bar().maximum() / 3);
  EXPECT_LT(Bar().value(), Bar().maximum());
  QTest::mouseMove(&Bar(), start + QPoint(0, Bar().height()));
  EXPECT_EQ(Bar().value(), Bar().maximum());
  QTest::mouseMove(&Bar(), start);
  QTest::mouseRelease(&Bar(), Qt::LeftButton, {}, start);
  EXPECT_EQ(Bar().value(), 0);
}

TEST_P(ScrollBar, TurnsAPageWhereItIsPressedBesideTheSlider) {
  const QPoint below(Bar().width() / 2, Bar().height() - 2);
  QTest::mouseClick(&Bar(), Qt::LeftButton, {}, below);
  // A text may go on to the next whole line.
  EXPECT_NEAR(Bar().value(), Bar().pageStep(), 1);
}

INSTANTIATE_TEST_SUITE_P(OfFactor, ScrollBar, testing::Values(1.0, 18.0 / 13, 2.0),
                         [](const auto& factor) {
                           return std::to_string(static_cast<int>(factor.param * 100));
                         });

}  // namespace
}  // namespace desktop
