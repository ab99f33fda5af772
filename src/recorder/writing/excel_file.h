#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/failure.h"
#include "base/number_text.h"
#include "platform/services/code_page.h"
#include "recorder/writing/file_numbers.h"

namespace packetroutines {

/// The kinds of cells, as `WriteValue` takes them.
namespace value_type {
inline constexpr std::int32_t Integer = 0;
inline constexpr std::int32_t Number = 1;
inline constexpr std::int32_t Text = 2;
}  // namespace value_type

/// The margins; each is the opcode of its record.
namespace margin {
inline constexpr std::int16_t Left = 38;
inline constexpr std::int16_t Right = 39;
inline constexpr std::int16_t Top = 40;
inline constexpr std::int16_t Bottom = 41;
}  // namespace margin

/// The font of a cell, in the bits of its second attribute byte.
namespace cell_font {
inline constexpr std::int32_t First = 0;
inline constexpr std::int32_t Second = 64;
inline constexpr std::int32_t Third = 128;
inline constexpr std::int32_t Fourth = 192;
}  // namespace cell_font

/// Where the content of a cell stands in it.
namespace alignment {
inline constexpr std::int32_t General = 0;
inline constexpr std::int32_t Left = 1;
inline constexpr std::int32_t Centre = 2;
inline constexpr std::int32_t Right = 3;
inline constexpr std::int32_t Fill = 4;
}  // namespace alignment

/// Whether a cell is hidden or locked.
namespace hidden_locked {
inline constexpr std::int32_t Neither = 0;
inline constexpr std::int32_t Locked = 64;
inline constexpr std::int32_t Hidden = 128;
}  // namespace hidden_locked

/// The look of a font; the bits add up.
namespace font_format {
inline constexpr std::int32_t Plain = 0;
inline constexpr std::int32_t Bold = 1;
inline constexpr std::int32_t Italic = 2;
inline constexpr std::int32_t Underline = 4;
inline constexpr std::int32_t Strikeout = 8;
}  // namespace font_format

/// Writes a worksheet file record by record, in the BIFF2 format of Excel 2.1: a single sheet, all
/// integers little-endian, texts in the system's code page. It knows nothing of samples, keeps
/// nothing of what it wrote, and leaves order and content to its user.
///
/// Every operation traps its failures and gives back their number, or 0. Each is one write of its
/// own; only between `Gather` and `WriteGathered` records wait in memory, so that a ring of cells
/// reaches the disk in one piece. There an operation still tells a value that does not convert and
/// a file that is not open; what the disk refuses is the result of `WriteGathered`.
class ExcelFile {
 public:
  /// The content of a cell; it is converted to the kind of the cell.
  using Value = std::variant<double, std::string_view>;

  ExcelFile(FileNumbers& files, const platform::NumberText& numbers, const platform::CodePage& code)
      : files_(files), numbers_(numbers), code_(code) {}
  ExcelFile(const ExcelFile&) = delete;
  ExcelFile& operator=(const ExcelFile&) = delete;
  /// Finishes a file that is open.
  ~ExcelFile();

  /// Begins a new file, which replaces one of that name; always 0, also where that failed. A file
  /// that is open already stays so.
  std::int16_t CreateFile(const std::string& fileName);
  /// Ends the file. Behind the first call it has nothing to end and gives back 52.
  std::int16_t CloseFile();
  /// The file that was begun last.
  const std::string& FileName() const { return fileName_; }
  /// Row and column count from 1. The row field takes 16 bits: a row above 32767 is written by way
  /// of its negative number, and 32768 alone has none that one can be taken from.
  std::int16_t WriteValue(std::int32_t valueType, std::int32_t cellFontUsed, std::int32_t alignment,
                          std::int32_t hiddenLocked, std::int32_t lrow, std::int32_t lcol,
                          const Value& value);
  /// In inches.
  std::int16_t SetMargin(std::int16_t margin, double marginValue);
  /// In characters of the default font; the columns count from 1.
  std::int16_t SetColumnWidth(std::uint8_t firstColumn, std::uint8_t lastColumn,
                              std::int16_t widthValue);
  /// Adds a font to the list of the file, of which cells can name the first four; in points.
  std::int16_t SetFont(const std::string& fontName, std::int16_t fontHeight,
                       std::int32_t fontFormat);
  std::int16_t SetHeader(const std::string& headerText);
  std::int16_t SetFooter(const std::string& footerText);
  std::int16_t SetFilePassword(const std::string& passwordText);
  void PrintGridLines(bool newvalue);
  void ProtectSpreadsheet(bool newvalue);

  /// From here on records wait for `WriteGathered`.
  void Gather();
  /// Writes what waits in one piece, and ends the waiting.
  std::int16_t WriteGathered();

  /// What the disk refused first, for those who tell the user; the numbers alone would not say why
  /// a file could not be opened. It is over with the next `Gather`, unless the file has no
  /// beginning or ends in a part of a record: behind that no reader finds what is written later.
  const std::optional<platform::Failure>& Refusal() const { return refusal_; }

 private:
  class Record;

  template <typename Operation>
  std::int16_t Trapped(Operation operation);
  /// Runs what works on the file, and keeps what it met.
  template <typename Work>
  void OnDisk(Work work);
  void Put(const Record& record, std::string_view text = {});
  void PutText(std::uint16_t code, const std::string& text);
  void PutSwitch(std::uint16_t code, bool on);
  void WriteWaiting();

  FileNumbers& files_;
  const platform::NumberText& numbers_;
  const platform::CodePage& code_;

  std::int16_t fileNumber_ = 0;
  bool gathering_ = false;
  /// Records on their way to the file; it keeps its room from ring to ring.
  std::string waiting_;
  std::optional<platform::Failure> refusal_;
  std::string fileName_;
  /// The file holds whole records from its beginning on.
  bool whole_ = false;
};

}  // namespace packetroutines
