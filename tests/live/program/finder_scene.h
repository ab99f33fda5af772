#pragma once

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "live/program/program_on_the_wire.h"

namespace desktop {

/// A scene on the wire that searches for senders.
class FinderScene : public ProgramOnTheWire {
 protected:
  void SetUp() override {
    // Two frames a second instead of one.
    Store("Internal Delay", "0");
    ProgramOnTheWire::SetUp();
    if (IsSkipped()) return;
    // The analysis of each frame leaves the ID in the report, and before it the source address.
    auto& id = Form().Label8[forms::report_row::StationId].Caption;
    id.Observe([this, &id] {
      lookedAt_ << QString::fromStdString(id);
      sources_.push_back(Form().Label8[forms::report_row::Source].Caption);
    });
  }

  /// Opens the finder and works in it. What the work leaves open is closed behind it.
  void Search(std::function<void(QDialog&)> work) {
    OnDialog([work = std::move(work)](QDialog& finder) {
      work(finder);
      if (finder.isVisible()) finder.reject();
    });
    Click("Command7");
  }
  /// Waits until the publishers are under way, so that the first frames tell of all of them.
  static void WaitForFrames() {
    ASSERT_TRUE(WaitFor([] { return live::FramesArrived() > 1000; }));
  }
  static QStringList Texts(const QListWidget& list) {
    QStringList texts;
    for (int row = 0; row < list.count(); ++row) texts << list.item(row)->text();
    return texts;
  }
  static std::string Told(const QStringList& texts) { return texts.join(", ").toStdString(); }
  /// What the list must hold for the frames that were looked at, in their order.
  QStringList Expected() const {
    QStringList expected;
    QString seen;
    for (const QString& id : lookedAt_) {
      if (!seen.contains(id)) expected << id;
      seen += ' ' + id;
    }
    return expected;
  }
  bool WereLookedAt(const QStringList& ids) const {
    return std::all_of(ids.begin(), ids.end(),
                       [this](const QString& id) { return lookedAt_.contains(id); });
  }
  static void Check(QListWidget& list, const QString& id) {
    const auto found = list.findItems(id, Qt::MatchExactly | Qt::MatchCaseSensitive);
    ASSERT_EQ(found.size(), 1) << id.toStdString();
    list.setCurrentItem(found[0]);
    QTest::keyClick(&list, Qt::Key_Space);
  }
  static QListWidget& ListOf(QDialog& finder) {
    return *finder.findChild<QListWidget*>("IDlook.List1");
  }
  QString Field(int index) { return Find<QLineEdit>(Member("Text1", index)).text(); }
  QString Station(int index) {
    return QString::fromStdString(Form().Option3[static_cast<std::size_t>(index)].Caption);
  }

  QStringList lookedAt_;
  std::vector<std::string> sources_;
};

}  // namespace desktop
