#include <gtest/gtest.h>

#include <QLocale>
#include <algorithm>

#include "desktop/services/qt_calendar.h"
#include "desktop/services/system_locale.h"
#include "recorder/reading/record_log.h"
#include "recorder/writing/writing.h"
#include "support/fake_platform.h"
#include "support/log_reading.h"
#include "support/sv_frame.h"

namespace desktop {
namespace {

/// A recording of one line on a computer with the settings of a locale.
class LogOfLocale : public support::FakePlatform {
 public:
  explicit LogOfLocale(const QLocale& locale)
      : Calendar(locale), Numbers(SeparatorsOf(locale)), log_(LogOf()) {
    state_.RecordFileName = "SV record 21.11.2026 18-04-09.txt";
  }

  /// The lines without their ends.
  std::vector<std::string> Lines() {
    const support::FrameBytes frame = support::SvFrame("MU01").Bytes();
    frame_.Redim(static_cast<std::int16_t>(frame.size()));
    frame_.Copy(frame);
    settings_.StoragePath = "c:\\StoredData";
    Files.Stored["c:\\StoredData\\" + state_.RecordFileName] =
        "0;0;1;1;1;1;1;1;1;1\r\n1;3;1;1;1;1;1;1;1;1\r\n";
    bool nothing = false;
    log_.BuildRecordLog(nothing);
    const std::string& log = Files.Stored.at("c:\\StoredData\\Errorlog " + state_.RecordFileName);
    std::vector<std::string> lines;
    for (std::size_t begin = 0, end; (end = log.find("\r\n", begin)) != std::string::npos;) {
      lines.push_back(log.substr(begin, end - begin));
      begin = end + 2;
    }
    return lines;
  }

  QtCalendar Calendar;
  platform::NumberText Numbers;

 private:
  packetroutines::RecordLog LogOf() {
    return {
        {settings_, present_, state_, writing_.Formats, writing_.Open, services_}, frame_, bar_};
  }

  config::Settings settings_;
  config::RunSettings present_;
  packetroutines::AcquisitionState state_;
  packetroutines::RecordRings rings_;
  forms::RecorderControls recorder_;
  packetroutines::RecorderServices services_{.Usual = {Events, Dialogs, Runtime},
                                             .Code = Code,
                                             .Numbers = Numbers,
                                             .Files = Files,
                                             .Calendar = Calendar,
                                             .Pointer = Pointer,
                                             .Links = Links,
                                             .Timers = Timers,
                                             .Sleep = Sleep,
                                             .Sync = nullptr};
  packetroutines::Writing writing_{recorder_, settings_, present_, state_, rings_, services_};
  packetroutines::PacketBytes frame_;
  platform::ProgressBar bar_;
  packetroutines::RecordLog log_;
};

std::string Started(const std::vector<std::string>& lines) {
  return lines.at(1).substr(std::string("Measurement started              : ").size());
}

TEST(LogOfLocaleScene, LosesNothingOfADateInAnyLocale) {
  constexpr platform::LocalTime Start{2026, 11, 21, 18, 4, 9};
  int inDigits = 0;
  int asWritten = 0;
  for (const QLocale& locale :
       QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
    LogOfLocale scene(locale);
    const std::vector<std::string> lines = scene.Lines();
    ASSERT_EQ(lines.size(), 15U) << locale.name().toStdString();
    for (const std::string& line : lines) {
      EXPECT_EQ(line.find_first_of("?<"), std::string::npos)
          << locale.name().toStdString() << ": " << line;
    }
    const std::string started = Started(lines);
    if (started == "2026-11-21 18:04:09") {
      ++inDigits;
    } else {
      ++asWritten;
      EXPECT_EQ(support::ReadLogText(scene.Code, started), scene.Calendar.GeneralText(Start))
          << locale.name().toStdString();
    }
  }
  EXPECT_GT(inDigits, 50);
  EXPECT_GT(asWritten, 300);
}

TEST(LogOfLocaleScene, WritesADateInDigitsWhereTheCodePageWouldTakeAPartOfIt) {
  for (const char* name : {"ja_JP", "bg_BG", "ar_EG", "ko_KR", "el_GR"}) {
    EXPECT_EQ(Started(LogOfLocale(QLocale(name)).Lines()), "2026-11-21 18:04:09") << name;
  }
  EXPECT_EQ(Started(LogOfLocale(QLocale("de_DE")).Lines()), "21.11.2026 18:04:09");
}

}  // namespace
}  // namespace desktop
