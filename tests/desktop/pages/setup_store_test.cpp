#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "desktop/services/qt_printers.h"
#include "window_scene.h"

namespace desktop {
namespace {

class SetupStore : public WindowScene {
 protected:
  void GoSetup() {
    Start();
    ClickTab(forms::tab::Setup);
  }
  void ExpectStored(const QString& key, const QString& text) {
    EXPECT_TRUE(WaitFor([&] { return Stored(key) == text; }))
        << key.toStdString() << " holds " << Stored(key).toStdString();
  }
};

TEST_F(SetupStore, EveryFieldGoesToTheFileAsItIsTyped) {
  GoSetup();
  Type(Member("Text1", 0), "and vlan 7");
  ExpectStored("Filterstring", "and vlan 7");
  // An empty field is no number, so the digits are replaced one by one.
  auto& frequency = Find<QLineEdit>(Member("Text1", 1));
  frequency.setFocus();
  frequency.selectAll();
  QTest::keyClicks(&frequency, "60");
  ExpectStored("Frequency", "60");
  Type(Member("Text1", 3), "d:\\records");
  ExpectStored("Path of stored data", "d:\\records");
  Type(Member("Text1", 13), "250");
  ExpectStored("Internal Delay", "250");
  for (int channel = 0; channel < 8; ++channel) {
    const QString name = QStringLiteral("Bay %1").arg(channel + 1);
    Type(Member("Text1", channel + 4), name);
    EXPECT_EQ(Program().Config.Settings.ChannelName[static_cast<std::size_t>(channel)],
              name.toStdString());
    EXPECT_EQ(Find<QAbstractButton>(Member("Check2", channel)).text(), name);
    auto& caption = Find<QLabel>(Member("Label6", channel));
    EXPECT_TRUE(WaitFor([&] { return caption.text().startsWith(name); }));
  }
}

TEST_F(SetupStore, TheSamplingsMakeTheArraysAnewAndAreNotReadBack) {
  GoSetup();
  Type(Member("Text1", 2), "200");
  EXPECT_EQ(Program().Config.Present.BaseSamples, 200);
  EXPECT_EQ(Program().Acquisition.Block.SignalValues.Rows(), 200);
  program_.reset();
  Start();
  EXPECT_EQ(Find<QLineEdit>(Member("Text1", 2)).text(), "400");
}

TEST_F(SetupStore, EverySettingAndTheLastTabComeBack) {
  GoSetup();
  Type(Member("Text1", 0), "and vlan 7");
  Type(Member("Text1", 3), "d:\\records");
  Type(Member("Text1", 12), "MU-7");
  Type(Member("Text1", 14), "MU-8");
  Type(Member("Text1", 13), "250");
  Type(Member("Text1", 11), "Bay 1 & 2");
  for (const char* list : {"Combo3", "Combo4(0)", "Combo4(1)"}) {
    auto& box = Find<QComboBox>(list);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_End);
  }
  Click("Check4");
  ClickTab(forms::tab::Values);
  program_.reset();
  Start();
  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Values);
  EXPECT_EQ(Program().Config.Settings.FilterString, "and vlan 7");
  EXPECT_EQ(Program().Config.Settings.StoragePath, "d:\\records");
  EXPECT_EQ(Program().Config.Settings.FilterContent[0], "MU-7");
  EXPECT_EQ(Program().Config.Settings.FilterContent[1], "MU-8");
  EXPECT_EQ(Program().Config.Settings.InternalDelay, 250);
  EXPECT_EQ(Program().Config.Settings.ChannelName[7], "Bay 1 & 2");
  EXPECT_EQ(Find<QComboBox>("Combo3").currentIndex(), 9);
  EXPECT_EQ(Find<QComboBox>("Combo4(0)").currentIndex(), 1);
  EXPECT_EQ(Find<QComboBox>("Combo4(1)").currentIndex(), 2);
  EXPECT_TRUE(Find<QAbstractButton>("Check4").isChecked());
}

TEST_F(SetupStore, ThePrinterListEndsWithThePdfFile) {
  GoSetup();
  auto& list = Find<QComboBox>("Combo2");
  ASSERT_GT(list.count(), 0);
  EXPECT_TRUE(list.itemText(list.count() - 1).startsWith(QtPrinters::PdfName));
  EXPECT_GE(list.currentIndex(), 0);
  EXPECT_TRUE(list.currentText().endsWith('*'));
}

}  // namespace
}  // namespace desktop
