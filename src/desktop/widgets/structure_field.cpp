#include "desktop/widgets/structure_field.h"

#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocumentFragment>

#include "desktop/look/look.h"
#include "forms/report_controls.h"

namespace desktop {

namespace {

/// In pixels of the smallest window.
constexpr double Margin = 8;
constexpr double LineGap = 2;
constexpr double Indent = 6;
/// The longest title that is usual, with room behind it.
constexpr const char* WidestTitle = "Destination  ";

QTextBlockFormat LineFormat() {
  QTextBlockFormat format;
  format.setBottomMargin(look::Scaled(LineGap));
  return format;
}

/// The value stands beside the title, also where it goes over several lines.
QTextBlockFormat Beside(int column) {
  QTextBlockFormat format = LineFormat();
  format.setLeftMargin(column);
  format.setTextIndent(-column);
  format.setTabPositions({QTextOption::Tab(column, QTextOption::LeftTab)});
  return format;
}

QTextBlockFormat SetOff() {
  QTextBlockFormat format = LineFormat();
  format.setBackground(look::AdviceGround);
  format.setLeftMargin(look::Scaled(Indent));
  return format;
}

QTextCharFormat Coloured(const QColor& colour, bool bold = false) {
  QTextCharFormat format;
  format.setForeground(colour);
  if (bold) format.setFontWeight(QFont::Bold);
  return format;
}

}  // namespace

StructureField::StructureField(QWidget* parent) : QTextEdit(parent) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setTabChangesFocus(true);
  setUndoRedoEnabled(false);
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFont(look::TextFont(look::SmallSize + 1));
}

void StructureField::ShowText(const QString& text) {
  text_ = text;
  Write();
  moveCursor(QTextCursor::Start);
  verticalScrollBar()->setValue(0);
}

void StructureField::TakeScale() {
  const int place = verticalScrollBar()->value();
  Write();
  verticalScrollBar()->setValue(place);
}

void StructureField::Write() {
  clear();
  document()->setDocumentMargin(look::Scaled(Margin));
  const int column = fontMetrics().horizontalAdvance(QLatin1String(WidestTitle));
  const QString sign = QLatin1String(forms::report_field::DifferenceSign);
  QTextCursor cursor(document());
  bool first = true;
  const QStringList lines = text_.trimmed().split(u'\n');
  for (const QString& line : lines) {
    const auto begin = [&](const QTextBlockFormat& format) {
      if (first)
        cursor.setBlockFormat(format);
      else
        cursor.insertBlock(format);
      first = false;
    };
    const qsizetype at = line.indexOf(QLatin1Char(forms::report_field::ValueSign));
    if (line.startsWith(sign)) {
      begin(SetOff());
      cursor.insertText(line.mid(sign.size()), Coloured(look::AdviceText));
    } else if (at < 0) {
      const bool heading = !first;
      begin(LineFormat());
      cursor.insertText(line, Coloured(heading ? look::Ink : look::QuietText, heading));
    } else {
      begin(Beside(column));
      cursor.insertText(line.left(at + 1), Coloured(look::QuietText));
      cursor.insertText(line.mid(at + 1), Coloured(look::Ink));
    }
  }
}

QMimeData* StructureField::createMimeDataFromSelection() const {
  auto* selected = new QMimeData;
  selected->setText(textCursor().selection().toPlainText());
  return selected;
}

}  // namespace desktop
