#include <map>

#include "desktop/binding/graph_view.h"
#include "desktop/look/casing.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/card.h"
#include "fit_check.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// The places of the Recorder view, in windows of several sizes.
class RecorderPlaces : public WindowScene, public testing::WithParamInterface<QSize> {
 protected:
  void StartAtRecorder() {
    Start();
    Form().Text1[12].Text = "VORNIK-SIM-1";
    ResizeFrame(GetParam());
    ClickTab(forms::tab::Recorder);
    QTest::qWait(50);
  }
  QRect PlaceOf(const QString& name) {
    auto& widget = Find<QWidget>(name);
    return {widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()};
  }
  Card& CardOf(const QString& name) {
    QWidget* above = &Find<QWidget>(name);
    while (qobject_cast<Card*>(above) == nullptr) above = above->parentWidget();
    return *qobject_cast<Card*>(above);
  }
  /// What the window shows in the place of a control.
  QImage Shown(const QString& name) { return program_->Window().grab(PlaceOf(name)).toImage(); }
  /// Where everything with a name stands, shown or not. A text may become longer to its right.
  std::map<QString, QRect> Places() {
    std::map<QString, QRect> places;
    for (const char* name :
         {"CWButton3", "StopWaits", "QuietLine(3)", "Command9", "OpenFolder", "ProgressBar1",
          "NotStored", "Shape9", "StoredOnly", "Text3(2)", "Text3(5)", "CWGraph2", "Legend",
          "QuickViewHint", "CheckLine", "Label10(1)", "Label10(4)"}) {
      places[name] = PlaceOf(name);
    }
    for (const char* name : {"Label10(0)", "Label10(2)", "Label10(3)", "OnDisk(0)", "OnDisk(1)"}) {
      places[name] = QRect(PlaceOf(name).topLeft(), QSize(1, PlaceOf(name).height()));
    }
    for (const char* name : {"CWButton3", "Option2(0)", "Shape9", "QuickViewHint"}) {
      const Card& card = CardOf(name);
      places[QString("card of ") + name] = {card.mapTo(card.window(), QPoint(0, 0)), card.size()};
    }
    return places;
  }
  static void ExpectSame(const std::map<QString, QRect>& now,
                         const std::map<QString, QRect>& before, const char* when) {
    ASSERT_FALSE(now.empty()) << when;
    for (const auto& [name, place] : now) {
      const QRect& old = before.at(name);
      EXPECT_TRUE(place == old) << name.toStdString() << " " << when << ": " << place.x() << ","
                                << place.y() << " " << place.width() << "x" << place.height()
                                << " from " << old.x() << "," << old.y() << " " << old.width()
                                << "x" << old.height();
    }
  }
  void ExpectPlaces(const std::map<QString, QRect>& before, const char* when) {
    // A busy computer lays out later.
    QTest::qWait(50);
    (void)QTest::qWaitFor(
        [&] { return Places() == before && tour::Misfits(program_->Window()).isEmpty(); }, 500);
    ExpectSame(Places(), before, when);
    for (const QString& misfit : tour::Misfits(program_->Window())) {
      ADD_FAILURE() << when << ": " << misfit.toStdString();
    }
  }
};

TEST_P(RecorderPlaces, NothingMovesFromRunToTheQuickView) {
  StartAtRecorder();
  const auto before = Places();
  Click("CWButton3");
  ASSERT_FALSE(Form().CWButton3.Visible);
  ExpectPlaces(before, "while the first ring is awaited");

  ASSERT_TRUE(WaitFor([&] { return Form().CWButton3.Visible.Get(); }));
  Form().QuietLine[forms::quiet_line::Recorder].Say("Waiting for \"MU01\": no frame came in.");
  Form().NotStored.Say("stream 1: not stored since 21 Nov 2026 18:15:57: Path/File access error.");
  ExpectPlaces(before, "while it records");

  std::map<QString, QRect> analysing;
  Form().ProgressBar1.Visible.Observe([&] {
    if (Form().ProgressBar1.Visible && analysing.empty()) analysing = Places();
  });
  Click("CWButton3");
  ASSERT_TRUE(WaitFor([&] { return Form().CWGraph2.Visible.Get(); }));
  ExpectSame(analysing, before, "while it is read back");
  ExpectPlaces(before, "with its quick view");
}

TEST_P(RecorderPlaces, TheCardOfRunHugsItsButton) {
  StartAtRecorder();
  const Card& card = CardOf("CWButton3");
  const int room = card.height() - Find<QWidget>("CWButton3").height();
  EXPECT_LE(room, look::Scaled(44));
  EXPECT_LT(card.geometry().bottom(), CardOf("Option2(0)").geometry().bottom());
}

TEST_P(RecorderPlaces, TheCardSaysWhatStopWaitsForInThePlaceOfTheButton) {
  StartAtRecorder();
  const auto& line = Find<QLabel>("StopWaits");
  EXPECT_FALSE(line.isVisible());
  Click("CWButton3");
  EXPECT_TRUE(WaitFor([&] { return line.text().startsWith("STOP comes when 4000 samples"); }));
  EXPECT_TRUE(line.isVisible());
  EXPECT_FALSE(Find<QWidget>("CWButton3").isVisible());
  EXPECT_EQ(&CardOf("StopWaits"), &CardOf("CWButton3"));
  EXPECT_TRUE(PlaceOf("StopWaits").intersects(PlaceOf("CWButton3")));

  ASSERT_TRUE(WaitFor([&] { return Form().CWButton3.Visible.Get(); }));
  EXPECT_FALSE(line.isVisible());
}

TEST_P(RecorderPlaces, TheQuickViewHasATitleItsLegendAndTheHeightThatIsThere) {
  StartAtRecorder();
  EXPECT_TRUE(Find<QWidget>("QuickViewHint").isVisible());
  Form().CWGraph2.Visible = true;
  QTest::qWait(50);
  Card& card = CardOf("CWGraph2");
  EXPECT_EQ(&card, &CardOf("Legend"));
  EXPECT_FALSE(Find<QWidget>("QuickViewHint").isVisible());
  QStringList titles;
  for (const auto* label : card.findChildren<QLabel*>()) titles << label->text();
  EXPECT_TRUE(titles.contains("Quick view"));
  EXPECT_GE(PlaceOf("CWGraph2").height(), look::Scaled(135));
  // The other cards hold no more than their rows.
  EXPECT_LE(CardOf("Option2(0)").height(), look::Scaled(312));
  EXPECT_LE(CardOf("Text3(2)").height(), look::Scaled(86));
  EXPECT_GE(PlaceOf("CWGraph2").height(),
            program_->Window().height() - look::Scaled(312 + 86) - look::Scaled(240));
}

TEST_P(RecorderPlaces, TheWaysToTheFilesStandBesideTheirPaths) {
  StartAtRecorder();
  Form().Command9.Visible = true;
  Form().Label10[forms::record_line::SecondPath].Visible = true;
  QTest::qWait(30);
  const QRect paths = PlaceOf("Label10(1)").united(PlaceOf("Label10(4)"));
  const QRect log = PlaceOf("Command9");
  const QRect folder = PlaceOf("OpenFolder");
  for (const QRect& button : {log, folder}) {
    EXPECT_LE(std::abs(button.center().y() - paths.center().y()), look::Scaled(2));
  }
  EXPECT_GT(log.left(), paths.right());
  EXPECT_LE(log.left() - paths.right(), look::Scaled(20));
  EXPECT_GT(folder.left(), log.right());
  EXPECT_LE(folder.left() - log.right(), look::Scaled(20));
  EXPECT_EQ(log.size().height(), folder.size().height());
}

TEST_P(RecorderPlaces, TheTriggerCardSaysThatItsFieldsAreStoredOnly) {
  StartAtRecorder();
  ASSERT_TRUE(Find<QWidget>("Shape9").isVisible());
  auto& note = Find<QLabel>("StoredOnly");
  EXPECT_TRUE(note.isVisible());
  EXPECT_TRUE(note.text().startsWith("Stored only"));
  EXPECT_EQ(&CardOf("StoredOnly"), &CardOf("Text3(2)"));
  // Each caption is above, before or behind its fields.
  EXPECT_LT(PlaceOf("Label3(6)").bottom(), PlaceOf("Text3(2)").top());
  EXPECT_EQ(PlaceOf("Label3(6)").left(), PlaceOf("Text3(2)").left());
  EXPECT_EQ(PlaceOf("Label3(5)").left(), PlaceOf("Text3(3)").left());
  EXPECT_LT(PlaceOf("Label3(22)").right(), PlaceOf("Text3(2)").left());
  EXPECT_GT(PlaceOf("Label3(9)").left(), PlaceOf("Text3(3)").right());
  EXPECT_LT(PlaceOf("Label3(24)").right(), PlaceOf("Text3(4)").left());
  EXPECT_GT(PlaceOf("Label3(23)").left(), PlaceOf("Text3(5)").right());
}

TEST_P(RecorderPlaces, TheRedDigitsAreReadable) {
  StartAtRecorder();
  auto& counter = Find<QLabel>("Label10(3)");
  const QImage idle = Shown("Label10(3)");
  EXPECT_EQ(idle.pixelColor(0, idle.height() / 2), look::Card) << "the plate is for red digits";
  Form().Label10[forms::record_line::Progress].ForeColor = platform::Rgb{255, 0, 0};
  QTest::qWait(30);
  const QImage picture = Shown("Label10(3)");
  const QColor ground = picture.pixelColor(counter.contentsRect().left() / 2, picture.height() / 2);
  QColor digits = ground;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor pixel = picture.pixelColor(x, y);
      if (pixel.red() > digits.red() && pixel.green() < 100) digits = pixel;
    }
  }
  EXPECT_GE(digits.red(), 250);
  EXPECT_GE(look::Contrast(digits, ground), look::ReadableContrast);
  EXPECT_LT(look::Contrast(digits, look::Card), look::ReadableContrast) << "or it needs no plate";
}

INSTANTIATE_TEST_SUITE_P(OfTheWindow, RecorderPlaces,
                         testing::Values(QSize(1024, 768), QSize(1920, 1080), QSize(3840, 2160)),
                         NameOfSize);

}  // namespace
}  // namespace desktop
