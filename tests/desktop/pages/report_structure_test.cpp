// What the Report page tells of a frame by its structure, and what is copied from it.

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>

#include "desktop/widgets/structure_field.h"
#include "desktop/widgets/text_area.h"
#include "fit_check.h"
#include "support/capture_bench.h"
#include "window_scene.h"

namespace desktop {
namespace {

using support::SvFrame;

class ReportStructure : public WindowScene {
 protected:
  void Open() {
    Start();
    ClickTab(forms::tab::Report);
    QGuiApplication::clipboard()->clear();
  }
  /// A run has brought this frame.
  void Bring(const support::FrameBytes& frame) {
    auto& view = Program().Reports.View;
    view.ReportAnalyse(support::CellsOf(frame));
    view.FrameReported({frame, frame.size(), std::chrono::seconds(0)});
    QTest::qWait(50);
  }
  StructureField& Field() { return Find<StructureField>("Structure"); }
  TextArea& Dump() { return Find<TextArea>("StructureDump"); }
  QLabel& Value(int i) { return Find<QLabel>(Member("Label8", i)); }
  QWidget& Page() { return *Value(0).parentWidget(); }
  static QString Copied() { return QGuiApplication::clipboard()->text(); }
  static void Press(QWidget& widget, QKeySequence::StandardKey keys) {
    QTest::keySequence(&widget, QKeySequence(keys));
  }
};

TEST_F(ReportStructure, IsOneQuietLineUntilARunHasItsFrame) {
  Open();
  EXPECT_EQ(Field().toPlainText(), "RUN tells here what a frame holds by its structure.");
  EXPECT_FALSE(Dump().isVisible());
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&Field())->text(QAccessible::Name),
            "By its structure");
}

TEST_F(ReportStructure, ComesWithARun) {
  Open();
  Click("Command2");
  ASSERT_TRUE(WaitFor([&] { return Form().Command4.Enabled.Get(); }));
  ASSERT_TRUE(WaitFor([&] { return Dump().isVisible(); }));
  EXPECT_TRUE(Field().toPlainText().contains("\nsvID\tVORNIK-SIM-"));
  EXPECT_TRUE(Field().toPlainText().contains("\nVLAN tag\t0x8100, priority 4, VLAN 0"));
  EXPECT_TRUE(Dump().toPlainText().startsWith("0000  01 0C CD 04"));
  EXPECT_EQ(Dump().fontMetrics().horizontalAdvance("iii"),
            Dump().fontMetrics().horizontalAdvance("WWW"));
}

TEST_F(ReportStructure, SetsOffWhatDiffersAndBeginsWithIt) {
  Open();
  Bring(SvFrame("MU01").Vlan(4, 1).Asdus(8).Bytes());
  Field().verticalScrollBar()->setValue(100);
  Bring(SvFrame("MU01").Vlan(4, 1).Bytes());
  EXPECT_EQ(Field().verticalScrollBar()->value(), 0);
  const QTextDocument& text = *Field().document();
  EXPECT_EQ(text.firstBlock().text(), "Ethertype: the row shows the VLAN tag. It is 0x88BA.");
  EXPECT_TRUE(text.firstBlock().blockFormat().hasProperty(QTextFormat::BackgroundBrush));
  EXPECT_FALSE(text.lastBlock().blockFormat().hasProperty(QTextFormat::BackgroundBrush));
}

TEST_F(ReportStructure, IsCopiedAsPlainText) {
  Open();
  Bring(SvFrame("MU01").Count(12).Bytes());
  Field().setFocus();
  Press(Field(), QKeySequence::SelectAll);
  Press(Field(), QKeySequence::Copy);
  EXPECT_TRUE(Copied().contains("\nASDU 1\nsvID\tMU01\nsmpCnt\t12\n")) << Copied().toStdString();
  EXPECT_EQ(QGuiApplication::clipboard()->mimeData()->formats(), QStringList("text/plain"));
  Dump().setFocus();
  Press(Dump(), QKeySequence::SelectAll);
  Press(Dump(), QKeySequence::Copy);
  EXPECT_EQ(Copied(), Dump().toPlainText());
}

TEST_F(ReportStructure, RowsAreCopiedByKeysAlone) {
  Open();
  Bring(SvFrame("MU01").Count(12).Bytes());
  Page().setFocus();
  for (int i = 0; i < 9; ++i) QTest::keyClick(&Page(), Qt::Key_Down);
  Press(Page(), QKeySequence::Copy);
  EXPECT_EQ(Copied(), "Sample Count:\t12\n");
  QTest::keyClick(&Page(), Qt::Key_Up, Qt::ShiftModifier);
  Press(Page(), QKeySequence::Copy);
  EXPECT_EQ(Copied(), "ID:\tMU01\nSample Count:\t12\n");
  Press(Page(), QKeySequence::SelectAll);
  Press(Page(), QKeySequence::Copy);
  EXPECT_TRUE(Copied().startsWith("Used filter string:\t"));
  EXPECT_TRUE(Copied().contains("\n00: 01 0C CD"));
  EXPECT_EQ(Copied().count('\n'), 21) << "two rows are empty";
}

TEST_F(ReportStructure, RowsArePickedByTheMouseAndMarked) {
  Open();
  Bring(SvFrame("MU01").Count(12).Bytes());
  const QImage before = Page().grab().toImage();
  QTest::mouseClick(&Value(7), Qt::LeftButton);
  EXPECT_TRUE(Page().hasFocus());
  EXPECT_NE(Page().grab().toImage(), before);
  Press(Page(), QKeySequence::Copy);
  EXPECT_EQ(Copied(), "ID:\tMU01\n");
  QTest::mouseClick(&Find<QLabel>(Member("Label7", 9)), Qt::LeftButton, Qt::ShiftModifier);
  Press(Page(), QKeySequence::Copy);
  EXPECT_EQ(Copied().count('\n'), 3);
}

TEST_F(ReportStructure, TheMenuCopiesThePickedRowsOrAllOfThem) {
  Open();
  Bring(SvFrame("MU01").Count(12).Bytes());
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, {5, 5}, Page().mapToGlobal(QPoint(5, 5)));
  const auto choose = [&](const QString& words, bool enabled) {
    QCoreApplication::sendEvent(&Page(), &asked);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions()) {
      if (action->text() != words) continue;
      EXPECT_EQ(action->isEnabled(), enabled);
      action->trigger();
    }
    menu->close();
  };
  choose("&Copy", false);
  EXPECT_EQ(Copied(), "");
  choose("Copy &all", true);
  EXPECT_EQ(Copied().count('\n'), 21);
  QTest::mouseClick(&Value(8), Qt::LeftButton);
  choose("&Copy", true);
  EXPECT_EQ(Copied(), "Sample Count:\t12\n");
}

TEST_F(ReportStructure, RowsThatAreHiddenAreNotCopied) {
  Open();
  Bring(SvFrame("MU01").Count(12).Bytes());
  for (std::size_t i = 0; i < 7; ++i) Form().Label8[i].Visible = false;
  Page().setFocus();
  Press(Page(), QKeySequence::SelectAll);
  Press(Page(), QKeySequence::Copy);
  EXPECT_TRUE(Copied().startsWith("Used filter string:\nDestination adress:\n"));
}

class ReportStructureFit : public ReportStructure, public testing::WithParamInterface<QSize> {};

TEST_P(ReportStructureFit, StandsClearOfAllOthers) {
  Open();
  ResizeFrame(GetParam());
  Bring(SvFrame("MU01").Vlan(4, 1).Asdus(8).Bytes());
  // Two IDs as long as they may be.
  const std::string id(65, 'M');
  Form().QuietLine[forms::quiet_line::Report].Say(
      "There is no report. RUN comes back when this page is entered anew. The frame that came was "
      "sent by \"" +
      id + "2\", which is more than \"" + id +
      "\". Of two streams a report needs the whole ID: see 'Packet content filter' under 'Setup'.");
  QTest::qWait(50);
  for (const QString& misfit : tour::Misfits(program_->Window())) {
    ADD_FAILURE() << misfit.toStdString();
  }
  // No line of the bytes is cut.
  EXPECT_EQ(Dump().horizontalScrollBar()->maximum(), 0);
  EXPECT_GE(Dump().height(), 4 * Dump().fontMetrics().lineSpacing());
  EXPECT_GE(Field().viewport()->width(),
            Field().fontMetrics().horizontalAdvance("Destination  01:0C:CD:04:00:01"));
}

INSTANTIATE_TEST_SUITE_P(OfTheWindow, ReportStructureFit,
                         testing::Values(QSize(1024, 768), QSize(1366, 768), QSize(1280, 1024),
                                         QSize(1920, 1080), QSize(2560, 1440), QSize(3840, 2160)),
                         NameOfSize);

}  // namespace
}  // namespace desktop
