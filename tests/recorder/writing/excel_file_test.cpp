#include "recorder/writing/excel_file.h"

#include <gtest/gtest.h>

#include <memory>

#include "adapters/windows1252.h"
#include "support/failing_files.h"
#include "support/fake_services.h"

namespace {

using packetroutines::ExcelFile;
using packetroutines::FileNumbers;
namespace value_type = packetroutines::value_type;

const std::string Begin = "09 00 04 00 02 00 0A 00 ";
const std::string End = "0A 00 00 00 ";

/// A worksheet file in memory.
class Excel : public testing::Test {
 protected:
  Excel() { file->CreateFile(Path); }

  std::string Hex() const {
    std::string text;
    for (const char c : disk.Stored.at(Path)) {
      constexpr const char* Digits = "0123456789ABCDEF";
      const auto byte = static_cast<unsigned char>(c);
      text += {Digits[byte / 16], Digits[byte % 16], ' '};
    }
    return text;
  }
  /// What the file holds behind its first record.
  std::string Records() const { return Hex().substr(Begin.size()); }
  std::int16_t Number(std::int32_t row, std::int32_t column, double value) {
    return file->WriteValue(value_type::Number, 0, 1, 0, row, column, value);
  }

  static constexpr const char* Path = "c:\\StoredData\\a.xls";
  support::FakeFiles disk;
  support::FailingFiles files{disk};
  FileNumbers open{files};
  platform::NumberText numbers;
  adapters::Windows1252 code;
  std::unique_ptr<ExcelFile> file = std::make_unique<ExcelFile>(open, numbers, code);
};

TEST_F(Excel, AnEmptyFileIsItsFirstAndItsLastRecord) {
  EXPECT_EQ(file->CloseFile(), 0);
  EXPECT_EQ(Hex(), "09 00 04 00 02 00 0A 00 0A 00 00 00 ");
}

TEST_F(Excel, GridLinesAndProtectionAreSwitches) {
  file->PrintGridLines(false);
  EXPECT_EQ(Records(), "2B 00 02 00 00 00 ");
  file->PrintGridLines(true);
  file->ProtectSpreadsheet(true);
  file->ProtectSpreadsheet(false);
  EXPECT_EQ(Records(), "2B 00 02 00 00 00 2B 00 02 00 01 00 12 00 02 00 01 00 12 00 02 00 00 00 ");
}

TEST_F(Excel, AColumnWidthStandsForARangeOfColumns) {
  EXPECT_EQ(file->SetColumnWidth(1, 5, 18), 0);
  EXPECT_EQ(Records(), "24 00 04 00 00 04 00 12 ");
}

TEST_F(Excel, AColumnWidthBeyondItsFieldsIsAnOverflow) {
  EXPECT_EQ(file->SetColumnWidth(0, 5, 18), 6);
  EXPECT_EQ(file->SetColumnWidth(1, 0, 18), 6);
  EXPECT_EQ(file->SetColumnWidth(1, 5, 128), 6);
  EXPECT_EQ(Records(), "");
  EXPECT_EQ(file->SetColumnWidth(255, 255, 127), 0);
  EXPECT_EQ(Records(), "24 00 04 00 FE FE 00 7F ");
}

TEST_F(Excel, AMarginIsItsOwnOpcode) {
  EXPECT_EQ(file->SetMargin(40, 1.5), 0);
  EXPECT_EQ(Records(), "28 00 08 00 00 00 00 00 00 00 F8 3F ");
}

TEST_F(Excel, AFontHasItsHeightItsLookAndItsName) {
  EXPECT_EQ(file->SetFont("Arial", 10, 1), 0);
  EXPECT_EQ(Records(), "31 00 0A 00 C8 00 01 00 05 41 72 69 61 6C ");
}

TEST_F(Excel, AFontBeyondItsFieldsIsAnOverflow) {
  EXPECT_EQ(file->SetFont("Arial", 1639, 1), 6);
  EXPECT_EQ(file->SetFont("Arial", 10, 256), 6);
  EXPECT_EQ(file->SetFont(std::string(256, 'a'), 10, 1), 6);
  EXPECT_EQ(Records(), "");
  EXPECT_EQ(file->SetFont("A", 1638, 255), 0);
  EXPECT_EQ(Records(), "31 00 06 00 F8 7F FF 00 01 41 ");
}

TEST_F(Excel, HeaderFooterAndPasswordAreTexts) {
  EXPECT_EQ(file->SetHeader("Up"), 0);
  EXPECT_EQ(file->SetFooter("Lo"), 0);
  EXPECT_EQ(file->SetFilePassword("Pw"), 0);
  EXPECT_EQ(Records(), "14 00 03 00 02 55 70 15 00 03 00 02 4C 6F 2F 00 02 00 50 77 ");
}

TEST_F(Excel, ATextOfAHeaderOfMoreThan255CharactersIsAnOverflow) {
  EXPECT_EQ(file->SetHeader(std::string(256, 'a')), 6);
  EXPECT_EQ(file->SetFooter(std::string(256, 'a')), 6);
  EXPECT_EQ(file->SetFilePassword(std::string(32768, 'a')), 6);
  EXPECT_EQ(Records(), "");
  EXPECT_EQ(file->SetHeader(std::string(255, 'a')), 0);
}

TEST_F(Excel, ATextCellHoldsItsLengthAndItsCharacters) {
  EXPECT_EQ(file->WriteValue(value_type::Text, 64, 1, 0, 1, 1, "Ramp"), 0);
  EXPECT_EQ(Records(), "04 00 0C 00 00 00 00 00 00 40 01 04 52 61 6D 70 ");
}

TEST_F(Excel, ATextHasOneByteACharacterOfTheCodePage) {
  EXPECT_EQ(file->WriteValue(value_type::Text, 0, 0, 0, 1, 1, "ä€語"), 0);
  EXPECT_EQ(Records(), "04 00 0B 00 00 00 00 00 00 00 00 03 E4 80 3F ");
}

TEST_F(Excel, ATextOf256CharactersIsAnOverflowAndLeavesTheFile) {
  EXPECT_EQ(file->WriteValue(value_type::Text, 64, 1, 0, 1, 1, std::string(256, 'a')), 6);
  EXPECT_EQ(Records(), "");
  EXPECT_EQ(file->WriteValue(value_type::Text, 64, 1, 0, 1, 1, std::string(255, 'a')), 0);
  EXPECT_EQ(disk.Stored.at(Path).size(), 8U + 12U + 255U);
}

TEST_F(Excel, ANumberCellIsAFloatOf64Bits) {
  EXPECT_EQ(file->WriteValue(value_type::Number, 64, 1, 128, 2, 3, -1.5), 0);
  EXPECT_EQ(Records(), "03 00 0F 00 01 00 02 00 80 40 01 00 00 00 00 00 00 F8 BF ");
}

TEST_F(Excel, AnIntegerCellIsASignedWord) {
  EXPECT_EQ(file->WriteValue(value_type::Integer, 0, 3, 64, 1, 2, -2.0), 0);
  EXPECT_EQ(Records(), "02 00 09 00 00 00 01 00 40 00 03 FE FF ");
}

TEST_F(Excel, AValueIsConvertedToTheKindOfItsCell) {
  EXPECT_EQ(file->WriteValue(value_type::Integer, 0, 0, 0, 1, 1, "7"), 0);
  EXPECT_EQ(file->WriteValue(value_type::Text, 0, 0, 0, 1, 1, 2.5), 0);
  EXPECT_EQ(Records(),
            "02 00 09 00 00 00 00 00 00 00 00 07 00 04 00 0B 00 00 00 00 00 00 00 00 03 32 2E 35 ");
}

TEST_F(Excel, AValueThatDoesNotConvertGivesItsNumberBack) {
  EXPECT_EQ(file->WriteValue(value_type::Integer, 0, 0, 0, 1, 1, 32768.0), 6);
  EXPECT_EQ(file->WriteValue(value_type::Number, 0, 0, 0, 1, 1, "a"), 13);
  EXPECT_EQ(Records(), "");
}

TEST_F(Excel, AnotherKindOfCellWritesNothing) {
  EXPECT_EQ(file->WriteValue(3, 0, 0, 0, 1, 1, 1.0), 0);
  EXPECT_EQ(Records(), "");
}

TEST_F(Excel, AnAttributeOutsideOfItsByteIsAnOverflow) {
  EXPECT_EQ(file->WriteValue(value_type::Number, 256, 0, 0, 1, 1, 1.0), 6);
  EXPECT_EQ(file->WriteValue(value_type::Number, 0, -1, 0, 1, 1, 1.0), 6);
  EXPECT_EQ(file->WriteValue(value_type::Number, 0, 0, 256, 1, 1, 1.0), 6);
  EXPECT_EQ(Records(), "");
}

/// The row field of a cell in row `row`.
struct RowField {
  std::int32_t Row;
  const char* Field;
};

TEST_F(Excel, RowsAreWrittenByWayOfTheirSignedNumbers) {
  for (const RowField& each :
       {RowField{1, "00 00"}, RowField{32767, "FE 7F"}, RowField{32769, "00 80"},
        RowField{65535, "FE FF"}, RowField{0, "FF FF"}}) {
    const std::size_t before = Records().size();
    EXPECT_EQ(Number(each.Row, 1, 0), 0) << each.Row;
    EXPECT_EQ(Records().substr(before + 12, 5), each.Field) << each.Row;
  }
}

TEST_F(Excel, ARowOrAColumnWithoutAFieldIsAnOverflow) {
  for (const std::int32_t place : {32768, 98304, -32768, -40000}) {
    EXPECT_EQ(Number(place, 1, 0), 6) << place;
    EXPECT_EQ(Number(1, place, 0), 6) << place;
  }
  EXPECT_EQ(Records(), "");
}

TEST_F(Excel, AnOlderFileIsGoneBehindTheBeginningOfAnother) {
  disk.Stored["c:\\StoredData\\b.xls"] = "older and longer than a beginning";
  EXPECT_EQ(file->CreateFile("c:\\StoredData\\b.xls"), 0);
  EXPECT_EQ(disk.Stored["c:\\StoredData\\b.xls"].size(), 8U);
}

TEST_F(Excel, AnOlderFileIsGoneAlsoWhereTheWritingFails) {
  disk.Stored["c:\\StoredData\\b.xls"] = "older";
  files.FailingWrite = files.Writes + 1;
  EXPECT_EQ(file->CreateFile("c:\\StoredData\\b.xls"), 0);
  EXPECT_EQ(disk.Stored["c:\\StoredData\\b.xls"].find("older"), std::string::npos);
}

TEST_F(Excel, ABeginningHidesWhatFails) {
  ExcelFile other(open, numbers, code);
  EXPECT_EQ(other.CreateFile("d:\\missing\\a.xls"), 0);
  EXPECT_EQ(other.WriteValue(value_type::Number, 0, 0, 0, 1, 1, 1.0), 52);
  ASSERT_TRUE(other.Refusal().has_value());
  EXPECT_EQ(other.Refusal()->Number(), 76);
}

TEST_F(Excel, AnOlderFileThatCannotBeDeletedIsNotTouched) {
  disk.Stored["c:\\StoredData\\b.xls"] = "older";
  files.FailingDelete = 1;
  files.Number = 70;
  ExcelFile other(open, numbers, code);
  EXPECT_EQ(other.CreateFile("c:\\StoredData\\b.xls"), 0);
  EXPECT_EQ(other.CloseFile(), 52);
  EXPECT_EQ(disk.Stored["c:\\StoredData\\b.xls"], "older");
  EXPECT_EQ(other.Refusal()->Number(), 70);
}

TEST_F(Excel, AnOperationGivesTheNumberOfAFullDiskBack) {
  const auto failing = [&](auto operation) {
    files.FailingWrite = files.Writes + 1;
    return operation();
  };
  EXPECT_EQ(failing([&] { return Number(1, 1, 0); }), 61);
  EXPECT_EQ(failing([&] { return file->SetMargin(40, 1); }), 61);
  EXPECT_EQ(failing([&] { return file->SetFont("Arial", 10, 0); }), 61);
  EXPECT_EQ(failing([&] { return file->SetColumnWidth(1, 2, 3); }), 61);
  EXPECT_EQ(failing([&] { return file->SetHeader("a"); }), 61);
  EXPECT_EQ(failing([&] { return file->SetFilePassword("a"); }), 61);
  EXPECT_EQ(failing([&] { return file->CloseFile(); }), 61);
  EXPECT_EQ(Number(1, 1, 0), 0) << "the file is open still";
}

TEST_F(Excel, ASecondClosingFailsAndAddsNothing) {
  EXPECT_EQ(file->CloseFile(), 0);
  EXPECT_EQ(file->CloseFile(), 52);
  EXPECT_EQ(Hex(), Begin + End);
  EXPECT_FALSE(file->Refusal().has_value());
}

TEST_F(Excel, ASecondClosingLeavesAnotherFileAlone) {
  file->CloseFile();
  ExcelFile other(open, numbers, code);
  other.CreateFile("c:\\StoredData\\b.xls");
  EXPECT_EQ(file->CloseFile(), 52);
  EXPECT_EQ(other.CloseFile(), 0);
}

TEST_F(Excel, AFileThatWasNeverBegunCannotBeClosed) {
  ExcelFile other(open, numbers, code);
  EXPECT_EQ(other.CloseFile(), 52);
}

TEST_F(Excel, ABeginningDoesNotCloseTheFileBefore) {
  file->CreateFile("c:\\StoredData\\b.xls");
  file->CloseFile();
  EXPECT_EQ(Hex(), Begin);
  EXPECT_EQ(disk.Stored["c:\\StoredData\\b.xls"].size(), 12U);
}

TEST_F(Excel, ItsEndFinishesAFileThatIsOpen) {
  file.reset();
  EXPECT_EQ(Hex(), Begin + End);
}

TEST_F(Excel, GatheredRecordsAreWrittenInOnePiece) {
  const int before = files.Writes;
  file->Gather();
  for (int row = 1; row <= 3; ++row) EXPECT_EQ(Number(row, 1, 0), 0);
  EXPECT_EQ(Records(), "");
  EXPECT_EQ(file->WriteGathered(), 0);
  EXPECT_EQ(files.Writes - before, 1);
  EXPECT_EQ(disk.Stored.at(Path).size(), 8U + 3 * 19U);
  EXPECT_EQ(Number(4, 1, 0), 0);
  EXPECT_EQ(files.Writes - before, 2) << "behind them each record is a write of its own";
}

TEST_F(Excel, GatheredRecordsStandInFrontOfTheEnd) {
  file->Gather();
  Number(1, 1, 0);
  EXPECT_EQ(file->CloseFile(), 0);
  EXPECT_EQ(Records(), "03 00 0F 00 00 00 00 00 00 00 01 00 00 00 00 00 00 00 00 " + End);
}

TEST_F(Excel, AFullDiskIsTheResultOfWritingWhatWasGathered) {
  file->Gather();
  EXPECT_EQ(Number(1, 1, 0), 0);
  EXPECT_EQ(Number(32768, 1, 0), 6);
  files.FailingWrite = files.Writes + 1;
  EXPECT_EQ(file->WriteGathered(), 61);
  EXPECT_EQ(file->Refusal()->Number(), 61);
  const std::string content = Hex();
  EXPECT_EQ(file->WriteGathered(), 0);
  EXPECT_EQ(Hex(), content) << "it is not tried again";
}

TEST_F(Excel, GatheringTellsThatNoFileIsOpen) {
  file->CloseFile();
  file->Gather();
  EXPECT_EQ(Number(1, 1, 0), 52);
}

}  // namespace
