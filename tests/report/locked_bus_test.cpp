#include "support/locked_bus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "shell/application.h"
#include "support/fake_platform.h"

namespace {

using support::FrameBytes;
using support::SvFrame;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;
namespace row = forms::report_row;

/// The whole program at a bus of senders that are locked to one clock.
class AtALockedBus : public ::testing::TestWithParam<int> {
 protected:
  AtALockedBus() {
    App.Load();
    main.TabStrip1.SelectedTab = forms::tab::Setup;
  }

  static std::string IdOf(int sender) {
    return "MU" + std::string(sender < 10 ? "0" : "") + std::to_string(sender);
  }
  /// The frame of a sender, with a source address of its own.
  static FrameBytes FrameOf(int sender, const std::string& id) {
    FrameBytes frame = SvFrame(id).Bytes();
    frame[11] = static_cast<std::uint8_t>(sender);
    return frame;
  }
  static FrameBytes FrameOf(int sender) { return FrameOf(sender, IdOf(sender)); }
  void Connect(int senders) {
    for (int i = 0; i < senders; ++i) Bus.Senders->Frames.push_back(FrameOf(i));
  }
  void Elapse(std::chrono::milliseconds time) {
    for (; time > 0ms; time -= 1ms) {
      Platform.Elapse(1ms);
      Bus.Deliver();
    }
  }
  /// The stream finder is open while `use` runs.
  void Find(const std::function<void()>& use) {
    App.Windows.IDlook.Window.ShowModal = [&] {
      Bus.Senders->Starts = 0;
      use();
      App.Windows.IDlook.Window.Unload();
    };
    main.Command7.Click();
  }
  std::set<std::string> Listed() const {
    std::set<std::string> ids;
    for (const platform::CheckItem& item : App.Windows.IDlook.List1.Items.Get())
      ids.insert(item.Text);
    return ids;
  }
  /// Listens until so many senders are listed; the number of looks.
  int LooksUntil(std::size_t listed) {
    for (int tenth = 0; tenth < 10'000 && Listed().size() < listed; ++tenth) Elapse(100ms);
    return Bus.Senders->Starts;
  }

  support::FakePlatform Platform;
  support::LockedBus Bus{Platform.Clock};
  formroutines::Application App{
      {Platform.Timers, Platform.Events, Platform.Dialogs, Platform.Runtime, Platform.Store, Bus,
       Platform.Code, Platform.Numbers, Platform.Files, Platform.Links, Platform.Calendar,
       &Platform.Folders, &Platform.Printers, &Platform.Surface, &Platform.Clipboard,
       &Platform.Pointer, &Platform.Screen}};
  forms::Main& main = App.Windows.Main;
};

class FinderAtALockedBus : public AtALockedBus {};

INSTANTIATE_TEST_SUITE_P(Senders, FinderAtALockedBus, ::testing::Values(2, 7, 30, 64));

TEST_P(FinderAtALockedBus, ListsAnotherSenderWithEachLook) {
  Connect(GetParam());
  Find([&] { EXPECT_LE(LooksUntil(static_cast<std::size_t>(GetParam())), GetParam() + 2); });
}

TEST_F(FinderAtALockedBus, ListsThemAlsoWhereEachFrameComesTwice) {
  Connect(7);
  std::vector<FrameBytes> doubled;
  for (const FrameBytes& frame : Bus.Senders->Frames) doubled.insert(doubled.end(), 2, frame);
  Bus.Senders->Frames = doubled;
  Find([&] { EXPECT_LE(LooksUntil(7), 9); });
}

TEST_P(FinderAtALockedBus, ListsAllBehindOneIdThatTheSearchIsMisledTo) {
  for (int i = 0; i < GetParam(); ++i) {
    FrameBytes frame = SvFrame(IdOf(i)).Vlan(4, 1).Bytes();
    frame[11] = static_cast<std::uint8_t>(i);
    Bus.Senders->Frames.push_back(frame);
  }
  // The misread one stands in the list too.
  const auto listed = static_cast<std::size_t>(GetParam()) + 1;
  Find([&] { EXPECT_LE(LooksUntil(listed), GetParam() + 2); });
}

TEST_F(FinderAtALockedBus, ListsThemAgainInTheNextSession) {
  Connect(7);
  for (int session = 0; session < 2; ++session) {
    Find([&] { EXPECT_LE(LooksUntil(7), 9); });
  }
}

TEST_F(FinderAtALockedBus, LeavesOutWhoseFramesAreLongerAndListsTheOthers) {
  Connect(7);
  Find([&] { Elapse(500ms); });
  Bus.Senders->Frames.insert(Bus.Senders->Frames.begin(), FrameOf(7, "A LONGER NAME"));
  Find([&] {
    EXPECT_LE(LooksUntil(7), 9);
    EXPECT_FALSE(Listed().contains("A LONGER NAME"));
    const std::string line = App.Windows.IDlook.FrameCount.Caption;
    EXPECT_NE(line.find("longer than expected and left out: RUN on a view measures the length"),
              std::string::npos)
        << line;
  });
  // The way out that the line names.
  main.TabStrip1.SelectedTab = forms::tab::Values;
  main.CWButton4.Value = true;
  Elapse(50ms);
  main.TabStrip1.SelectedTab = forms::tab::Setup;
  Find([&] { EXPECT_LE(LooksUntil(8), 10); });
}

TEST_F(FinderAtALockedBus, TakesTheFirstThatComesWhenAllAreKnown) {
  Connect(3);
  Find([&] {
    LooksUntil(3);
    std::vector<std::string> met;
    main.Timer2.Enabled.Observe([&] {
      if (main.Timer2.Enabled) met.push_back(main.Label8[row::Source].Caption);
    });
    Elapse(5s);
    ASSERT_GE(met.size(), 4U);
    for (const std::string& source : met) EXPECT_EQ(source, "02:00:00:00:00:00");
  });
}

TEST_F(FinderAtALockedBus, IsNotHeldUpByASenderWhoseIdIsAnotherInEachFrame) {
  Connect(7);
  Bus.Senders->Frames.insert(Bus.Senders->Frames.begin(), FrameOf(99, "0000"));
  const FrameBytes& changing = Bus.Senders->Frames.front();
  const std::string id = "0000";
  const auto at = std::search(changing.begin(), changing.end(), id.begin(), id.end());
  const auto place = at - changing.begin();
  Bus.Senders->Change = [place](FrameBytes& frame, std::int64_t period) {
    if (frame[11] != 99) return;
    const std::string number = std::to_string(1000 + period % 9000);
    std::copy(number.begin(), number.end(), frame.begin() + place);
  };
  Find([&] {
    Elapse(10 * 1100ms);
    for (int sender = 0; sender < 7; ++sender) EXPECT_TRUE(Listed().contains(IdOf(sender)));
  });
}

class ReportAtALockedBus : public AtALockedBus {
 protected:
  void Choose(const std::string& first, const std::string& second) {
    main.Text1[forms::setup_field::Content1].Text = first;
    main.Text1[forms::setup_field::Content2].Text = second;
    main.TabStrip1.SelectedTab = forms::tab::Report;
  }
  void Run() {
    main.Command2.Value = true;
    Elapse(50ms);
  }
  std::string StationId() const { return main.Label8[row::StationId].Caption; }
  std::string Line() const { return main.QuietLine[forms::quiet_line::Report].Caption; }
};

INSTANTIATE_TEST_SUITE_P(Senders, ReportAtALockedBus, ::testing::Values(2, 7, 30, 64));

TEST_P(ReportAtALockedBus, ShowsTheChosenStationWithOnePress) {
  Connect(GetParam());
  const int last = GetParam() - 1;
  Choose(IdOf(last), IdOf(last / 2));
  for (const std::size_t choice : {6, 7}) {
    main.Option3[choice].Value = true;
    Run();
    EXPECT_EQ(StationId(), IdOf(choice == 6 ? last : last / 2));
    EXPECT_TRUE(main.Label8[0].Visible);
  }
}

TEST_F(ReportAtALockedBus, ShowsTheOneStationThatIsKnown) {
  Connect(7);
  Choose("MU05", "");
  Run();
  EXPECT_EQ(StationId(), "MU05");
}

TEST_F(ReportAtALockedBus, ShowsTheStationAndNotOneWhoseIdHoldsIt) {
  Bus.Senders->Frames = {FrameOf(1, "MU1-B"), FrameOf(2, "MU1-C"), FrameOf(3, "MU1")};
  Choose("MU1", "MU1-C");
  Run();
  EXPECT_EQ(StationId(), "MU1");
}

TEST_F(ReportAtALockedBus, SaysThatAPartOfAnIdIsNotEnough) {
  Bus.Senders->Frames = {FrameOf(1, "MV1-A"), FrameOf(2, "MV1-B"), FrameOf(3, "MU1-C")};
  Choose("MU1", "MV1-B");
  Run();
  EXPECT_EQ(Line(),
            "The frame that came was sent by \"MU1-C\", which is more than \"MU1\". Of two streams "
            "a report needs the whole ID: see 'Packet content filter' under 'Setup'.");
}

TEST_F(ReportAtALockedBus, SaysThatNoStationIsChosen) {
  Connect(7);
  Choose("", "MU05");
  ASSERT_TRUE(main.Option3[6].Value);
  Run();
  EXPECT_EQ(Line(),
            "The frame that came was sent by \"MU05\". The station chosen here has no content "
            "filter: choose the other one, or see 'Packet content filter' under 'Setup'.");
  main.Option3[7].Value = true;
  Run();
  EXPECT_EQ(StationId(), "MU05");
  EXPECT_EQ(Line(), "");
}

TEST_F(ReportAtALockedBus, AsksAgainForAStationThatIsNotThere) {
  Connect(7);
  Choose("MU55", "MU05");
  Run();
  EXPECT_NE(Line().find("and not by \"MU55\". RUN asks again."), std::string::npos) << Line();
}

TEST_F(ReportAtALockedBus, EndsWellWhereTheBusWakesUpBehindThePressWithTheShorterFrames) {
  Bus.Senders->Frames = {FrameOf(1, "MU1"), FrameOf(2, "A LONGER NAME")};
  Bus.Senders->Silent = Platform.Clock.Now() + 1s;
  Choose("A LONGER NAME", "MU1");
  main.Command2.Value = true;
  Elapse(2s);
  EXPECT_EQ(StationId(), "A LONGER NAME");
  EXPECT_TRUE(Platform.Dialogs.Shown.empty());
}

}  // namespace
