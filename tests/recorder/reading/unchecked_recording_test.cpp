#include "recorder/reading/unchecked_recording.h"

#include <gmock/gmock.h>

#include "support/fake_services.h"

namespace support {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Unchecked : public testing::Test {
 protected:
  void Put(const std::string& name, const std::string& content = "0;0;1\r\n") {
    files_.Stored[folder_ + "\\" + name] = content;
  }
  /// The names of the files that are found; none where nothing is.
  std::vector<std::string> Found() {
    const auto found = packetroutines::FindUnchecked(
        files_, folder_, [this](const std::string& name) { return name == leftOut_; });
    return found ? found->Names : std::vector<std::string>();
  }

  FakeFiles files_;
  const std::string folder_ = "c:\\StoredData";
  std::string leftOut_;
};

TEST_F(Unchecked, IsTheNewestByTheMomentInItsName) {
  Put("SV record 31.12.2023 23-59-59.txt");
  Put("SV record 01.02.2024 00-00-01.txt");
  Put("SV record 28.01.2024 18-00-00.txt");
  const auto found =
      packetroutines::FindUnchecked(files_, folder_, [](const auto&) { return false; });
  ASSERT_TRUE(found);
  EXPECT_THAT(found->Names, ElementsAre("SV record 01.02.2024 00-00-01.txt"));
  EXPECT_EQ(found->Start, (platform::LocalTime{2024, 2, 1, 0, 0, 1}));
}

TEST_F(Unchecked, HasNeitherALogNorACheck) {
  Put("SV record 09.03.2024 14-05-07.txt");
  EXPECT_THAT(Found(), ElementsAre("SV record 09.03.2024 14-05-07.txt"));
  Put("Errorlog SV record 09.03.2024 14-05-07.txt");
  EXPECT_THAT(Found(), IsEmpty());
  files_.Stored.clear();
  Put("SV record 09.03.2024 14-05-07.txt");
  Put("Checklog SV record 09.03.2024 14-05-07.txt");
  EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(Unchecked, OfTwoStreamsIsBothFilesButNotTheEmptyOneBeside) {
  Put("1_SV record 09.03.2024 14-05-07.txt");
  Put("2_SV record 09.03.2024 14-05-07.txt");
  Put("SV record 09.03.2024 14-05-07.txt", "");
  EXPECT_THAT(Found(), ElementsAre("1_SV record 09.03.2024 14-05-07.txt",
                                   "2_SV record 09.03.2024 14-05-07.txt"));
  Put("Checklog 1_SV record 09.03.2024 14-05-07.txt");
  EXPECT_THAT(Found(), ElementsAre("2_SV record 09.03.2024 14-05-07.txt"));
  leftOut_ = "2_SV record 09.03.2024 14-05-07.txt";
  EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(Unchecked, OfOneFileBesideASecondStreamLeavesOutWhatHasItsLog) {
  Put("SV record 09.03.2024 14-05-07.txt");
  Put("Errorlog SV record 09.03.2024 14-05-07.txt");
  Put("2_SV record 09.03.2024 14-05-07.txt");
  EXPECT_THAT(Found(), ElementsAre("2_SV record 09.03.2024 14-05-07.txt"));
}

TEST_F(Unchecked, GoesByExactNamesInTheFolderItself) {
  for (const char* name :
       {"SV record 09.03.2024 14-05-07.dat", "SV record 09.03.2024 14-05-07.txt.bak",
        "Copy of SV record 09.03.2024 14-05-07.txt", "3_SV record 09.03.2024 14-05-07.txt",
        "1_1_SV record 09.03.2024 14-05-07.txt", "sv record 09.03.2024 14-05-07.txt",
        "SV record 9.03.2024 14-05-07.txt", "SV record 09.03.2024 14:05:07.txt",
        "SV record dd.mm.yyyy hh-MM-ss.txt", "SV record 09.13.2024 14-05-07.txt",
        "SV record 31.02.2024 14-05-07.txt", "below\\SV record 09.03.2024 14-05-07.txt",
        "SV record ", ""}) {
    Put(name);
    EXPECT_THAT(Found(), IsEmpty()) << name;
  }
  Put("SV record 01.01.2020 00-00-00.txt");
  EXPECT_THAT(Found(), ElementsAre("SV record 01.01.2020 00-00-00.txt"))
      << "behind names that are no date";
}

TEST_F(Unchecked, IsNoneInAFolderThatIsNotThere) {
  EXPECT_FALSE(packetroutines::FindUnchecked(files_, "d:\\", [](const auto&) { return false; }));
}

}  // namespace
}  // namespace support
