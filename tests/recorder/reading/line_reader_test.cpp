#include "recorder/reading/line_reader.h"

#include <gmock/gmock.h>

#include "recorder/reading/line_count.h"
#include "support/failures.h"
#include "support/fake_platform.h"

namespace {

using packetroutines::AnalysisPass;
using packetroutines::CountFileLines;
using packetroutines::LineReader;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Lines = std::vector<std::string>;

/// A file that gives its bytes in pieces of a size.
class SlowFile : public platform::InputFile {
 public:
  SlowFile(std::string bytes, std::size_t most) : bytes_(std::move(bytes)), most_(most) {}
  std::size_t Read(std::span<char> piece) override {
    const std::size_t count = std::min({most_, piece.size(), bytes_.size() - at_});
    std::copy_n(bytes_.data() + at_, count, piece.data());
    at_ += count;
    return count;
  }

 private:
  std::string bytes_;
  std::size_t most_;
  std::size_t at_ = 0;
};

Lines Read(const std::string& bytes, std::size_t most) {
  platform::ProgressBar bar;
  AnalysisPass pass(bar, 0, 100, 0);
  SlowFile file(bytes, most);
  LineReader reader(file, pass);
  Lines lines;
  while (!reader.AtEnd()) lines.emplace_back(reader.Next());
  EXPECT_EQ(support::FailureOf([&] { reader.Next(); }), 62);
  return lines;
}

TEST(LineReader, ReadsLinesWithoutTheirEnds) {
  EXPECT_THAT(Read("a\r\nbc\r\n", 100), ElementsAre("a", "bc"));
}

TEST(LineReader, EndsALineAtTheReturnWithOrWithoutALineFeed) {
  EXPECT_THAT(Read("a\rb\r\nc\r\rd\r", 100), ElementsAre("a", "b", "c", "", "d"));
}

TEST(LineReader, KeepsALineFeedThatEndsNoLine) {
  EXPECT_THAT(Read("a\nb\r\n\nc\r", 100), ElementsAre("a\nb", "\nc"));
}

TEST(LineReader, ReadsALastLineWithoutAnEnd) {
  EXPECT_THAT(Read("a\r\nb", 100), ElementsAre("a", "b"));
}

TEST(LineReader, ReadsNothingFromAnEmptyFile) {
  EXPECT_THAT(Read("", 100), IsEmpty());
}

TEST(LineReader, ReadsTheSameInPiecesOfAnySize) {
  const std::string bytes = "0;1;2\r\n\r\n3\r4\n5\r\n\r6;7";
  const Lines whole = Read(bytes, bytes.size());
  for (std::size_t most = 1; most < bytes.size(); ++most) {
    EXPECT_EQ(Read(bytes, most), whole) << most;
  }
}

TEST(LineReader, ReadsALineThatIsLongerThanItsPiece) {
  const std::string longLine(1'000'000, 'x');
  EXPECT_THAT(Read("a\r\n" + longLine + "\r\nb\r\n", 100'000), ElementsAre("a", longLine, "b"));
}

TEST(LineReader, ReadsLinesAcrossManyPieces) {
  Lines wanted;
  std::string bytes;
  for (int i = 0; i < 100'000; ++i) {
    wanted.push_back(std::to_string(i * 7919));
    bytes += wanted.back() + "\r\n";
  }
  EXPECT_EQ(Read(bytes, bytes.size()), wanted);
}

class LineCount : public ::testing::Test {
 protected:
  std::int32_t Count(const std::string& bytes) {
    files_.Stored[Path] = bytes;
    return CountFileLines(files_, Path, pass_);
  }

  static constexpr const char* Path = "c:\\StoredData\\a.txt";
  support::FakeFiles files_;
  platform::ProgressBar bar_;
  AnalysisPass pass_{bar_, 0, 100, 1};
};

TEST_F(LineCount, CountsReturnsAlone) {
  EXPECT_EQ(Count(""), 0);
  EXPECT_EQ(Count("\n\n"), 0);
  EXPECT_EQ(Count("a\r\nb\r\nc"), 2);
  EXPECT_EQ(Count("\r\r\r"), 3);
}

TEST_F(LineCount, CountsInEveryPlaceOfAFileOfAnyLength) {
  for (const std::size_t length : {63U, 64U, 65U, 16'319U, 16'320U, 16'321U, 16'384U, 40'000U}) {
    EXPECT_EQ(Count(std::string(length, '\r')), static_cast<std::int32_t>(length));
    std::string bytes(length, 'x');
    for (const std::size_t place : {std::size_t{0}, length / 2, length - 1}) bytes[place] = '\r';
    EXPECT_EQ(Count(bytes), 3);
  }
}

TEST_F(LineCount, MakesAFileThatIsMissing) {
  EXPECT_EQ(CountFileLines(files_, Path, pass_), 0);
  ASSERT_TRUE(files_.FileExists(Path));
  EXPECT_EQ(files_.FileSize(Path), 0);
}

TEST_F(LineCount, LeavesTheFileAsItIs) {
  Count("a\r\nb");
  EXPECT_EQ(files_.Stored[Path], "a\r\nb");
}

TEST_F(LineCount, FailsWhereTheFileCannotBeMade) {
  files_.Folders.clear();
  EXPECT_EQ(support::FailureOf([&] { CountFileLines(files_, Path, pass_); }),
            platform::failure::PathNotFound);
}

}  // namespace
