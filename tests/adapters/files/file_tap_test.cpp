// A capture file that is listened to as a bus, from its beginning to its end.

#include <gmock/gmock.h>

#include <chrono>
#include <memory>

#include "adapters/capture_file.h"
#include "adapters/hand_clock.h"
#include "adapters/system_bus_taps.h"
#include "support/failures.h"

namespace {

using adapter_tests::Marked;
using adapter_tests::PcapFile;
using support::FailureOf;
using testing::HasSubstr;
using testing::IsEmpty;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""us;

class FileTapScene : public ::testing::Test {
 protected:
  void Open(platform::TapPace pace) { tap_ = places_.Open(file_.string(), pace); }
  /// The mark of the next frame that is there; 0 where none is.
  int Next() {
    const auto frame = tap_->Next();
    if (!frame) return 0;
    arrived_ = frame->Arrived;
    return frame->Bytes.back();
  }

  adapter_tests::ScratchFolder folder_;
  std::filesystem::path file_ = folder_.Path / "bus.pcap";
  adapter_tests::HandClock clock_;
  adapters::SystemBusTaps places_{clock_, {folder_.Path, {}}, [] {
                                    return std::vector<adapters::NetworkInterface>{
                                        {"eth7", "eth7 (network interface)", adapters::Reach::Down,
                                         adapters::InterfaceKind::Port}};
                                  }};
  std::unique_ptr<platform::BusTap> tap_;
  std::chrono::microseconds arrived_{0};
};

TEST_F(FileTapScene, KeepsThePaceOfTheFile) {
  PcapFile().Add(5, 0, Marked(1)).Add(5, 250, Marked(2)).Save(file_);
  Open(platform::TapPace::AsRecorded);
  EXPECT_TRUE(tap_->Ends());
  EXPECT_EQ(Next(), 1);
  EXPECT_EQ(Next(), 0) << "the second one is not due";
  EXPECT_FALSE(tap_->Ended());

  clock_.Time += 250us;

  EXPECT_EQ(Next(), 2);
  EXPECT_EQ(arrived_, 5s + 250us) << "as it was noted";
  EXPECT_FALSE(tap_->Ended()) << "the last frame is still looked at";
  EXPECT_EQ(Next(), 0);
  EXPECT_TRUE(tap_->Ended());
}

TEST_F(FileTapScene, IsFoundByANameInAnyLanguage) {
  // "Ä", "€" and a Chinese character.
  const std::string name = "\xC3\x84\xE2\x82\xAC\xE5\xA4\xA9.pcap";
  PcapFile().Add(5, 0, Marked(1)).Save(folder_.Path / u8"\u00C4\u20AC\u5929.pcap");

  const std::vector<platform::CapturePlace> places = places_.Places();
  ASSERT_EQ(places.back().Name, name);
  EXPECT_TRUE(places.back().Usable);
  tap_ = places_.Open(name, platform::TapPace::AsFastAsRead);

  EXPECT_EQ(Next(), 1);
}

TEST_F(FileTapScene, IsReadAsFastAsItCanBe) {
  PcapFile().Add(5, 0, Marked(1)).Add(9, 0, Marked(2)).Save(file_);
  Open(platform::TapPace::AsFastAsRead);
  EXPECT_EQ(Next(), 1);
  EXPECT_EQ(tap_->Now(), 5s);
  EXPECT_EQ(Next(), 2);
  EXPECT_EQ(tap_->Now(), 9s);
  EXPECT_EQ(Next(), 0);
  EXPECT_THAT(tap_->Trouble(), IsEmpty());
}

TEST_F(FileTapScene, TellsWhereAFileIsDamaged) {
  PcapFile().Add(5, 0, Marked(1)).AddNonsense().Save(file_);
  Open(platform::TapPace::AsFastAsRead);
  EXPECT_EQ(Next(), 1);
  EXPECT_EQ(Next(), 0);
  EXPECT_TRUE(tap_->Ended());
  EXPECT_THAT(tap_->Trouble(), HasSubstr("damaged behind frame 1"));
}

TEST_F(FileTapScene, NamesThatLeadNowhereSaySo) {
  EXPECT_EQ(FailureOf([&] { places_.Open("gone.pcap", platform::TapPace::AsRecorded); }), 53);
  EXPECT_EQ(FailureOf([&] { places_.Open("no-such-adapter", platform::TapPace::AsRecorded); }), 57);
  const platform::Failure missing = support::RaisedBy(
      [&] { places_.OpenCapture("no-such-adapter", platform::TapPace::AsRecorded); });
  EXPECT_EQ(missing.Number(), 57) << "the card may come yet";
  EXPECT_EQ(missing.Text(),
            "There is no adapter no-such-adapter; 'vornik-cli adapters' lists them.");
}

TEST_F(FileTapScene, AFileOfTheCapturesGoesByItsNameAlone) {
  PcapFile().Add(5, 0, Marked(1)).Save(file_);
  tap_ = places_.Open("bus.pcap", platform::TapPace::AsFastAsRead);
  EXPECT_EQ(Next(), 1);
}

TEST_F(FileTapScene, ThePlacesAreThoseOfTheWindowsList) {
  PcapFile().Add(5, 0, Marked(1)).Save(file_);
  std::ofstream(folder_.Path / "broken.pcapng") << "no capture";
  const auto places = places_.Places();
  ASSERT_EQ(places.size(), 4U);
  EXPECT_EQ(places[0].Name, "simulated");
  EXPECT_EQ(places[1].Title, "eth7 (network interface), switched off");
  EXPECT_FALSE(places[1].Usable);
  EXPECT_EQ(places[2].Name, "broken.pcapng");
  EXPECT_FALSE(places[2].Usable);
  EXPECT_TRUE(places[3].Usable);
  EXPECT_THAT(places_.Advice(), HasSubstr("eth7 is switched off"));
}

}  // namespace
