#include <QScrollArea>
#include <set>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/card.h"
#include "desktop/widgets/logo_view.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// The places of the Setup view, in windows of several sizes.
class SetupPlaces : public WindowScene, public testing::WithParamInterface<QSize> {
 protected:
  void StartAtSetup() {
    Start();
    ResizeFrame(GetParam());
    ClickTab(forms::tab::Setup);
    QTest::qWait(50);
  }
  QScrollArea& Area() {
    QWidget* above = &Find<QWidget>("Combo1");
    while (qobject_cast<QScrollArea*>(above) == nullptr) above = above->parentWidget();
    return *qobject_cast<QScrollArea*>(above);
  }
  QRect PlaceOf(const QWidget& widget) {
    return {widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()};
  }
  /// The groups by the left edge of their column.
  std::map<int, QList<QRect>> Columns() {
    std::map<int, QList<QRect>> columns;
    for (const auto* card : Area().findChildren<Card*>()) {
      const QRect place = PlaceOf(*card);
      columns[place.left()] << place;
    }
    return columns;
  }
};

TEST_P(SetupPlaces, TheColumnsBeginAndEndTogetherWithinTheMargins) {
  StartAtSetup();
  const auto columns = Columns();
  EXPECT_EQ(columns.size(), GetParam().width() >= 3840 ? 3U : 2U);
  std::set<int> tops;
  std::set<int> bottoms;
  std::set<int> widths;
  for (const auto& [left, cards] : columns) {
    QRect all;
    for (const QRect& card : cards) all = all.united(card);
    tops.insert(all.top());
    bottoms.insert(all.bottom());
    widths.insert(all.width());
  }
  EXPECT_EQ(tops.size(), 1U);
  EXPECT_EQ(bottoms.size(), 1U);
  EXPECT_LE(*widths.rbegin() - *widths.begin(), 1);
  EXPECT_LE(*bottoms.begin(), PlaceOf(Area()).bottom());
}

TEST_P(SetupPlaces, TheGroupsStandAsFarApartAsFromTheEdge) {
  StartAtSetup();
  const int margin = Columns().begin()->first - PlaceOf(Area()).left();
  std::optional<int> right;
  for (const auto& [left, cards] : Columns()) {
    if (right) EXPECT_NEAR(left - *right - 1, margin, 1);
    right = cards.first().right();
    for (qsizetype i = 1; i < cards.size(); ++i) {
      EXPECT_NEAR(cards[i].top() - cards[i - 1].bottom() - 1, margin, 1);
    }
  }
}

TEST_P(SetupPlaces, NoHalfOfTheWindowIsEmpty) {
  StartAtSetup();
  int lowest = 0;
  for (const auto& [left, cards] : Columns()) lowest = std::max(lowest, cards.last().bottom());
  EXPECT_GT(lowest, program_->Window().height() * 0.6);
}

TEST_P(SetupPlaces, TheTitlesOfTheGroupsStandAtTheirTops) {
  StartAtSetup();
  for (const auto* card : Area().findChildren<Card*>()) {
    const auto* title = card->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_NE(title, nullptr);
    EXPECT_LE(title->geometry().bottom(), look::Scaled(34)) << title->text().toStdString();
  }
}

TEST_P(SetupPlaces, TheFieldsOfAColumnBeginAtOneEdge) {
  StartAtSetup();
  for (const auto& names : {QStringList{"Combo1", "Text1(0)", "Text1(12)", "Text1(3)", "Combo2"},
                            QStringList{"Combo3", "Text1(13)", "Text1(1)", "Combo4(0)"}}) {
    std::set<int> edges;
    for (const QString& name : names) {
      auto& field = Find<QWidget>(name);
      edges.insert(field.mapTo(field.parentWidget(), QPoint(0, 0)).x());
    }
    EXPECT_EQ(edges.size(), 1U) << names.first().toStdString();
    EXPECT_EQ(*edges.begin(), Find<QWidget>("Combo1").x()) << "and the columns alike";
  }
}

TEST_P(SetupPlaces, TheHeadingsOfTheNamesStandOnOneLine) {
  StartAtSetup();
  for (const int row : {13, 14}) {
    const auto& heading = Find<QLabel>(Member("Label2", row));
    EXPECT_FALSE(heading.wordWrap());
    EXPECT_GE(heading.width(), heading.sizeHint().width());
  }
}

TEST_P(SetupPlaces, TheNameOfTheProgramStandsBesideItsLogo) {
  StartAtSetup();
  const QRect name = PlaceOf(Find<QWidget>("Label13"));
  const QRect logo = PlaceOf(Find<LogoView>("Picture1(3)"));
  EXPECT_LE(std::abs(name.center().y() - logo.center().y()), 1);
  EXPECT_GT(logo.left() - name.right(), look::Scaled(8));
  EXPECT_LT(logo.left() - name.right(), look::Scaled(24));
  EXPECT_GE(name.top(), PlaceOf(Area()).bottom()) << "what scrolls ends above";
  EXPECT_GE(logo.top(), PlaceOf(Area()).bottom());
}

INSTANTIATE_TEST_SUITE_P(OfTheWindow, SetupPlaces,
                         testing::Values(QSize(1024, 768), QSize(1366, 768), QSize(1920, 1080),
                                         QSize(2560, 1440), QSize(3840, 2160)),
                         NameOfSize);

class SetupColumns : public WindowScene {};

TEST_F(SetupColumns, ComeAndGoWithTheWindowAndKeepTheOrderOfTheKeys) {
  Start();
  ClickTab(forms::tab::Setup);
  const auto order = [&] {
    QStringList names;
    QWidget* first = &Find<QWidget>("Combo1");
    QWidget* at = first;
    do {
      if (!at->objectName().isEmpty() && at->focusPolicy() != Qt::NoFocus)
        names << at->objectName();
      at = at->nextInFocusChain();
    } while (at != first);
    return names;
  };
  const QStringList keys = order();
  const QRect small = Find<QWidget>("Combo3").geometry();
  ResizeFrame({3840, 2160});
  QTest::qWait(30);
  EXPECT_EQ(order(), keys);
  ResizeFrame({1024, 768});
  QTest::qWait(30);
  EXPECT_EQ(order(), keys);
  EXPECT_EQ(Find<QWidget>("Combo3").geometry(), small);
}

}  // namespace
}  // namespace desktop
