#include "recorder/writing/text_format.h"

#include "platform/services/dialogs.h"
#include "recorder/writing/sample_lines.h"

namespace packetroutines {

bool TextFormat::Write(std::size_t stream) {
  context_.Open.OpenToAppend(TextFile, RecordPath(context_, stream));
  lines_.clear();
  const std::int64_t first = FirstLine(stream);
  for (std::int16_t i = 0; i < RecordRings::Cells; ++i) AppendLine(stream, first + i, i);
  context_.Open.Write(TextFile, lines_);
  context_.Open.Close(TextFile);
  if (stream == 0) ++textBlockIndex_;
  return true;
}

std::int64_t TextFormat::FirstLine(std::size_t stream) const {
  // The first stream has a running count of its lines. That of the second follows its counted
  // blocks, of which a ring has one less than it holds, so the numbers of two rings overlap.
  if (stream == 0) return textBlockIndex_ * RecordRings::Cells;
  return std::int64_t{context_.State.BlockCount2} * context_.Present.BaseSamples - LinesSetBack;
}

void TextFormat::AppendLine(std::size_t stream, std::int64_t line, std::int16_t cell) {
  const RecordRings& rings = context_.Rings;
  platform::NumberText::AppendGeneral(lines_, line);
  lines_ += ';';
  platform::NumberText::AppendGeneral(
      lines_, std::int64_t{stream == 0 ? rings.RecordCount(cell) : rings.RecordCount2(cell)});
  for (const auto& channel : stream == 0 ? rings.RecordChannel : rings.RecordChannel2) {
    lines_ += ';';
    const std::size_t begin = lines_.size();
    context_.Services.Numbers.AppendGeneral(lines_, channel(cell));
    DotDecimal(lines_, begin);
  }
  lines_ += platform::Crlf;
}

}  // namespace packetroutines
