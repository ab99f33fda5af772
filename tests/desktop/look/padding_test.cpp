#include <QApplication>
#include <QImage>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "desktop/look/instrument_style.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/card.h"
#include "desktop/widgets/choice_box.h"
#include "desktop/widgets/text_area.h"
#include "desktop/widgets/text_field.h"

namespace desktop {
namespace {

/// Fields as they are painted in windows of several factors.
class Padding : public testing::TestWithParam<double> {
 protected:
  Padding() {
    look::SetScale(GetParam());
    sheet_.resize(800, 400);
  }
  ~Padding() override { look::SetScale(1); }

  /// Shows a field at the present factor, without the focus.
  QImage Picture(QWidget& field, QSize size) {
    field.move(20, 20);
    look::ScaleTree(sheet_);
    field.resize(size);
    field.setFocusPolicy(Qt::NoFocus);
    sheet_.show();
    return field.grab().toImage();
  }
  /// How far from the left edge the first pixel is that is as dark as a text.
  static int TextStart(const QImage& picture) {
    for (int x = 4; x < picture.width(); ++x) {
      for (int y = picture.height() / 4; y < picture.height() * 3 / 4; ++y) {
        if (picture.pixelColor(x, y).lightness() < 90) return x;
      }
    }
    return -1;
  }
  /// Where the upper edge begins in its full colour, a little behind the round corner.
  static int CornerStart(const QImage& picture, const QColor& edge) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixelColor(x, 0) == edge) return x;
    }
    return -1;
  }
  static int EdgeWidth(const QImage& picture, const QColor& edge) {
    int width = 0;
    while (picture.pixelColor(width, picture.height() / 2) == edge) ++width;
    return width;
  }
  static double Factor() { return look::Scale(); }

  QWidget sheet_;
};

TEST_P(Padding, TheTextsOfFieldsAndListsBeginInOneLine) {
  auto& field = *new TextField(&sheet_);
  auto& list = *new ChoiceBox(&sheet_);
  field.setText("HHH");
  list.addItem("HHH");
  const QSize size(look::Scaled(200), look::Scaled(look::FieldHeight));
  const int start = TextStart(Picture(field, size));
  // The letter itself begins a pixel behind its place.
  EXPECT_NEAR(start, (look::FieldPadding + 1) * Factor(), 1.5);
  EXPECT_EQ(TextStart(Picture(list, size)), start);
}

TEST_P(Padding, EdgesAndCornersOfFieldsFollow) {
  const QSize size(look::Scaled(200), look::Scaled(100));
  for (QWidget* field :
       {static_cast<QWidget*>(new TextField(&sheet_)),
        static_cast<QWidget*>(new ChoiceBox(&sheet_)), static_cast<QWidget*>(new TextArea(&sheet_)),
        static_cast<QWidget*>(new QPushButton(&sheet_))}) {
    field->setMaximumHeight(QWIDGETSIZE_MAX);
    const QImage picture = Picture(*field, size);
    EXPECT_EQ(EdgeWidth(picture, look::StrongEdge), look::LineWidth());
    EXPECT_NEAR(CornerStart(picture, look::StrongEdge), 4.5 * Factor(), 1)
        << field->metaObject()->className();
  }
}

TEST_P(Padding, EdgesAndCornersOfCardsFollow) {
  auto& card = *new Card("Heading", &sheet_);
  const QImage picture = Picture(card, {look::Scaled(200), look::Scaled(100)});
  EXPECT_EQ(EdgeWidth(picture, look::Edge), look::LineWidth());
  EXPECT_NEAR(CornerStart(picture, look::Edge), 7.5 * Factor(), 1);
}

TEST_P(Padding, TheTextOfAnAreaKeepsItsMargin) {
  auto& area = *new TextArea(&sheet_);
  area.setPlainText("HHH");
  const QImage picture = Picture(area, {look::Scaled(200), look::Scaled(60)});
  EXPECT_NEAR(TextStart(picture), 14 * Factor(), 1.5);
}

TEST_P(Padding, ABarFillsFromEdgeToEdge) {
  auto& bar = *new QProgressBar(&sheet_);
  bar.setTextVisible(false);
  const QSize size(look::Scaled(200), look::Scaled(8));
  const auto filled = [&](int percent) {
    bar.setValue(percent);
    const QImage picture = Picture(bar, size);
    int count = 0;
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixelColor(x, picture.height() / 2) == look::Accent) ++count;
    }
    return count;
  };
  EXPECT_EQ(filled(0), 0);
  EXPECT_NEAR(filled(50), size.width() / 2.0, 3 * look::LineWidth());
  EXPECT_NEAR(filled(100), size.width() - 2 * look::LineWidth(), 2);
}

TEST_P(Padding, AChoiceThatIsLockedHasNoLiveColour) {
  auto& choice = *new QRadioButton(&sheet_);
  choice.setChecked(true);
  const QSize size(look::Scaled(30), look::Scaled(24));
  const QPoint middle(look::Scaled(17) / 2, size.height() / 2);
  EXPECT_EQ(Picture(choice, size).pixelColor(middle), look::Accent);
  choice.setEnabled(false);
  EXPECT_EQ(Picture(choice, size).pixelColor(middle), look::DisabledText);
}

TEST_P(Padding, TheDotOfAChoiceLeavesRoomToItsCircle) {
  auto& choice = *new QRadioButton(&sheet_);
  choice.setChecked(true);
  const int side = look::Scaled(17);
  const QImage picture = Picture(choice, {look::Scaled(30), look::Scaled(24)});
  const int row = picture.height() / 2;
  int dot = 0;
  const auto isMark = [&](int x) { return picture.pixelColor(x, row) == look::Accent; };
  for (int x = side / 2; isMark(x); ++x) ++dot;
  for (int x = side / 2 - 1; isMark(x); --x) ++dot;
  // Those on its rim are half as full.
  EXPECT_NEAR(dot + 1.7, (side - look::LineWidth(2)) * 0.46, 0.7);
}

INSTANTIATE_TEST_SUITE_P(OfFactor, Padding, testing::Values(1.0, 18.0 / 13, 24.0 / 13, 2.0),
                         [](const auto& factor) {
                           return std::to_string(static_cast<int>(factor.param * 100));
                         });

}  // namespace
}  // namespace desktop
