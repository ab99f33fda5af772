#include "recorder/writing/excel_file.h"

#include <array>
#include <bit>
#include <limits>
#include <new>
#include <utility>

namespace packetroutines {

using platform::Failure;
using platform::Narrow;
namespace failure = platform::failure;

namespace {

/// The opcodes of the records, from the description of BIFF2.
namespace opcode {
constexpr std::uint16_t Integer = 2;
constexpr std::uint16_t Number = 3;
constexpr std::uint16_t Label = 4;
constexpr std::uint16_t Begin = 9;
constexpr std::uint16_t End = 10;
constexpr std::uint16_t Protect = 18;
constexpr std::uint16_t Header = 20;
constexpr std::uint16_t Footer = 21;
constexpr std::uint16_t ColumnWidth = 36;
constexpr std::uint16_t PrintGridLines = 43;
constexpr std::uint16_t FilePassword = 47;
constexpr std::uint16_t Font = 49;
}  // namespace opcode

constexpr std::uint16_t Version = 2;
constexpr std::uint16_t Worksheet = 10;
/// The length fields of the cells, without the text of a label.
constexpr std::uint16_t IntegerLength = 9;
constexpr std::uint16_t NumberLength = 15;
constexpr std::size_t LabelLength = 8;
/// Columns and rows from here on have a negative 16-bit number.
constexpr std::int32_t LastPositive = 32767;
constexpr std::int32_t Wrap = 65536;
/// Units of the file in a character's width and in a point of a font's height.
constexpr std::int32_t WidthUnits = 256;
constexpr std::int32_t HeightUnits = 20;

std::uint16_t SignedWord(std::int64_t value) {
  return static_cast<std::uint16_t>(Narrow<std::int16_t>(value));
}

/// The 0-based field of a 1-based row or column.
std::uint16_t Place(std::int32_t number) {
  const auto wrapped = Narrow<std::int16_t>(number > LastPositive ? number - Wrap : number);
  return SignedWord(wrapped - 1);
}

std::uint8_t AttributeByte(std::int32_t value) {
  return Narrow<std::uint8_t>(value);
}

std::uint8_t LengthByte(std::string_view text) {
  return Narrow<std::uint8_t>(static_cast<std::int64_t>(text.size()));
}

double NumberOf(const ExcelFile::Value& value, const platform::NumberText& numbers) {
  if (const auto* text = std::get_if<std::string_view>(&value)) return numbers.ToDouble(*text);
  return std::get<double>(value);
}

std::string TextOf(const ExcelFile::Value& value, const platform::NumberText& numbers) {
  if (const auto* text = std::get_if<std::string_view>(&value)) return std::string(*text);
  return numbers.General(std::get<double>(value));
}

}  // namespace

/// A record without its text, in the bytes that reach the file.
class ExcelFile::Record {
 public:
  Record(std::uint16_t code, std::size_t length) {
    Word(code);
    // The length is a signed word to the program, whatever the format could take.
    Word(SignedWord(static_cast<std::int64_t>(length)));
  }
  Record& Byte(std::uint8_t value) {
    bytes_[size_++] = static_cast<char>(value);
    return *this;
  }
  Record& Word(std::uint16_t value) { return Little(value); }
  Record& Float(double value) { return Little(std::bit_cast<std::uint64_t>(value)); }
  std::string_view Bytes() const { return {bytes_.data(), size_}; }

 private:
  template <typename T>
  Record& Little(T value) {
    for (std::size_t i = 0; i < sizeof(T); ++i) Byte(static_cast<std::uint8_t>(value >> (8 * i)));
    return *this;
  }

  /// The longest is a number's.
  std::array<char, NumberLength + 4> bytes_{};
  std::size_t size_ = 0;
};

template <typename Operation>
std::int16_t ExcelFile::Trapped(Operation operation) {
  try {
    operation();
  } catch (const Failure& trapped) {
    return static_cast<std::int16_t>(trapped.Number());
  } catch (const std::bad_alloc&) {
    return static_cast<std::int16_t>(failure::OutOfMemory);
  }
  return 0;
}

template <typename Work>
void ExcelFile::OnDisk(Work work) {
  try {
    work();
  } catch (const Failure& met) {
    if (!refusal_) refusal_ = met;
    throw;
  }
}

ExcelFile::~ExcelFile() {
  if (fileNumber_ > 0) CloseFile();
}

std::int16_t ExcelFile::CreateFile(const std::string& fileName) {
  refusal_.reset();
  waiting_.clear();
  fileName_ = fileName;
  whole_ = false;
  Trapped([&] {
    OnDisk([&] {
      files_.DeleteIfThere(fileName);
      fileNumber_ = files_.Next();
      files_.OpenAnew(fileNumber_, fileName);
    });
    Put(Record(opcode::Begin, 4).Word(Version).Word(Worksheet));
    whole_ = true;
  });
  return 0;
}

std::int16_t ExcelFile::CloseFile() {
  return Trapped([&] {
    gathering_ = false;
    Put(Record(opcode::End, 0));
    OnDisk([&] { files_.Close(fileNumber_); });
  });
}

std::int16_t ExcelFile::WriteValue(std::int32_t valueType, std::int32_t cellFontUsed,
                                   std::int32_t alignment, std::int32_t hiddenLocked,
                                   std::int32_t lrow, std::int32_t lcol, const Value& value) {
  return Trapped([&] {
    const std::uint16_t row = Place(lrow);
    const std::uint16_t column = Place(lcol);
    const auto cell = [&](std::uint16_t code, std::size_t length) {
      return Record(code, length)
          .Word(row)
          .Word(column)
          .Byte(AttributeByte(hiddenLocked))
          .Byte(AttributeByte(cellFontUsed))
          .Byte(AttributeByte(alignment));
    };
    switch (valueType) {
      case value_type::Integer: {
        const auto whole = platform::Round<std::int16_t>(NumberOf(value, numbers_));
        Put(cell(opcode::Integer, IntegerLength).Word(static_cast<std::uint16_t>(whole)));
        break;
      }
      case value_type::Number:
        Put(cell(opcode::Number, NumberLength).Float(NumberOf(value, numbers_)));
        break;
      case value_type::Text: {
        const std::string text = code_.FromUtf8(TextOf(value, numbers_));
        const std::uint8_t length = LengthByte(text);
        Put(cell(opcode::Label, LabelLength + length).Byte(length), text);
        break;
      }
      default:
        break;
    }
  });
}

std::int16_t ExcelFile::SetMargin(std::int16_t margin, double marginValue) {
  return Trapped([&] { Put(Record(static_cast<std::uint16_t>(margin), 8).Float(marginValue)); });
}

std::int16_t ExcelFile::SetColumnWidth(std::uint8_t firstColumn, std::uint8_t lastColumn,
                                       std::int16_t widthValue) {
  return Trapped([&] {
    Put(Record(opcode::ColumnWidth, 4)
            .Byte(Narrow<std::uint8_t>(firstColumn - 1))
            .Byte(Narrow<std::uint8_t>(lastColumn - 1))
            .Word(SignedWord(std::int64_t{widthValue} * WidthUnits)));
  });
}

std::int16_t ExcelFile::SetFont(const std::string& fontName, std::int16_t fontHeight,
                                std::int32_t fontFormat) {
  return Trapped([&] {
    const std::string name = code_.FromUtf8(fontName);
    const std::uint8_t length = LengthByte(name);
    Put(Record(opcode::Font, length + std::size_t{5})
            .Word(SignedWord(std::int64_t{fontHeight} * HeightUnits))
            .Byte(AttributeByte(fontFormat))
            .Byte(0)
            .Byte(length),
        name);
  });
}

std::int16_t ExcelFile::SetHeader(const std::string& headerText) {
  return Trapped([&] { PutText(opcode::Header, headerText); });
}

std::int16_t ExcelFile::SetFooter(const std::string& footerText) {
  return Trapped([&] { PutText(opcode::Footer, footerText); });
}

std::int16_t ExcelFile::SetFilePassword(const std::string& passwordText) {
  return Trapped([&] {
    const std::string text = code_.FromUtf8(passwordText);
    Put(Record(opcode::FilePassword, text.size()), text);
  });
}

void ExcelFile::PrintGridLines(bool newvalue) {
  Trapped([&] { PutSwitch(opcode::PrintGridLines, newvalue); });
}

void ExcelFile::ProtectSpreadsheet(bool newvalue) {
  Trapped([&] { PutSwitch(opcode::Protect, newvalue); });
}

void ExcelFile::PutText(std::uint16_t code, const std::string& text) {
  const std::string bytes = code_.FromUtf8(text);
  const std::uint8_t length = LengthByte(bytes);
  Put(Record(code, length + std::size_t{1}).Byte(length), bytes);
}

void ExcelFile::PutSwitch(std::uint16_t code, bool on) {
  Put(Record(code, 2).Word(on ? 1 : 0));
}

void ExcelFile::Put(const Record& record, std::string_view text) {
  if (!files_.IsOpen(fileNumber_)) throw Failure(failure::BadFileNumber);
  waiting_ += record.Bytes();
  waiting_ += text;
  if (!gathering_) WriteWaiting();
}

void ExcelFile::Gather() {
  gathering_ = true;
  if (whole_) refusal_.reset();
}

std::int16_t ExcelFile::WriteGathered() {
  gathering_ = false;
  return Trapped([&] { WriteWaiting(); });
}

void ExcelFile::WriteWaiting() {
  if (waiting_.empty()) return;
  const std::int64_t before = files_.SizeOf(fileName_);
  try {
    OnDisk([&] { files_.Write(fileNumber_, waiting_); });
  } catch (const Failure&) {
    // A part of it may be on disk, so it is not tried again.
    waiting_.clear();
    if (files_.SizeOf(fileName_) != before) whole_ = false;
    throw;
  }
  waiting_.clear();
}

}  // namespace packetroutines
