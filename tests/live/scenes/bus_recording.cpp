// What a scene on a bus demands of a recording.

#include <QDialog>
#include <QFile>
#include <algorithm>

#include "live/scenes/bus_scene.h"
#include "live/scenes/wire_tap.h"

namespace desktop {

using live::BusUnit;
using live::Frame;

namespace {

constexpr std::size_t Ring = 4000;
constexpr std::size_t Fields = 10;

/// A line of a file: the counter and the eight values.
using Line = std::vector<double>;

std::vector<Line> LinesOf(const std::string& path) {
  QFile file(QString::fromStdString(path));
  EXPECT_TRUE(file.open(QFile::ReadOnly)) << path;
  std::vector<Line> lines;
  for (const QByteArray& text : file.readAll().split('\n')) {
    if (text.isEmpty()) continue;
    const QList<QByteArray> fields = text.split(';');
    EXPECT_EQ(fields.size(), Fields) << text.toStdString();
    Line line;
    for (qsizetype k = 1; k < fields.size(); ++k) line.push_back(fields[k].trimmed().toDouble());
    lines.push_back(line);
  }
  return lines;
}

/// Whether a line tells a frame.
bool Tells(const Line& line, const live::Row& row) {
  return line.size() == 1 + row.Values.size() && line[0] == row.Count &&
         std::equal(row.Values.begin(), row.Values.end(), line.begin() + 1);
}

/// How many lines tell the frames from one of them on.
std::size_t LinesThatTell(const std::vector<Line>& lines, const std::vector<live::Row>& rows,
                          std::size_t begin) {
  std::size_t line = 0;
  while (line < lines.size() && begin + line < rows.size() &&
         Tells(lines[line], rows[begin + line])) {
    ++line;
  }
  return line;
}

}  // namespace

void BusScene::Record(const std::string& first, const std::string& second) {
  ClickTab(forms::tab::Recorder);
  Click(Member("Option2", static_cast<int>(forms::record_format::Text)));
  const std::string filter = "ether src " + Unit(first).Reader().Address(6) + " or ether src " +
                             Unit(second).Reader().Address(6);
  live::WireTap tap("ether proto 0x88ba and (" + filter + ")");
  std::vector<Frame> sent;
  Press("CWButton3");
  ASSERT_TRUE(WaitFor([&] {
    tap.TakeTo(sent);
    return !Form().OnDisk[0].Caption.Get().empty() && !Form().OnDisk[1].Caption.Get().empty();
  })) << "no ring of "
      << (Form().OnDisk[0].Caption.Get().empty() ? first : second);
  OnDialog([](QDialog& dialog) { dialog.reject(); });
  Press("CWButton3");
  tap.TakeAllTo(sent);
  ASSERT_EQ(tap.Missed(), 0U);
  const std::string folder = home_.filePath("StoredData").toStdString() + "/";
  ExpectStored(Unit(first), sent, folder + "1_" + Program().Acquisition.State.RecordFileName);
  ExpectStored(Unit(second), sent, folder + "2_" + Program().Acquisition.State.RecordFileName);
}

void BusScene::ExpectStored(const BusUnit& unit, const std::vector<Frame>& sent,
                            const std::string& file) {
  SCOPED_TRACE("recording of " + unit.Id());
  ASSERT_TRUE(unit.Place());
  std::vector<live::Row> rows;
  for (const Frame& frame : sent) {
    if (unit.IsOf(frame)) rows.push_back(live::RowOf(frame, *unit.Place()));
  }
  const std::vector<Line> lines = LinesOf(file);
  ASSERT_GE(lines.size(), Ring);
  EXPECT_EQ(lines.size() % Ring, 0U);
  std::size_t most = 0;
  for (std::size_t begin = 0; begin < rows.size() && most < lines.size(); ++begin) {
    most = std::max(most, LinesThatTell(lines, rows, begin));
  }
  EXPECT_EQ(most, lines.size()) << "lines from the first one on that tell what was sent";
}

}  // namespace desktop
