#include "report/stream_finder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "base/raised.h"

namespace packetroutines {

namespace {

constexpr platform::Rgb Ground{147, 201, 254};
/// Between the window's coming up and the first start of capture, in ms.
constexpr std::int32_t BeginAfter = 100;
/// As many streams as there are content filters.
constexpr std::int32_t MostChecked = 2;
constexpr std::array<std::size_t, MostChecked> FilterFields = {forms::setup_field::Content1,
                                                               forms::setup_field::Content2};

constexpr const char* FilterRefused =
    "The packet filter condition was refused, so nothing is listened to: close this window and "
    "correct it.";
constexpr const char* TabLeft =
    "The search has ended with the change of the page: close this window to find streams anew.";

}  // namespace

StreamFinder::StreamFinder(const FinderControls& controls, const RunFields& state, RunControl& run,
                           config::Settings& settings, subroutines::StoredSettings& stored,
                           CaptureSession& capture, const FinderFrames& frames,
                           const platform::Services& services)
    : look_(controls.Look),
      controls_(controls),
      line_(controls.Shared.QuietLine[forms::quiet_line::Setup]),
      state_(state),
      run_(run),
      settings_(settings),
      stored_(stored),
      capture_(capture),
      services_(services),
      read_(frames),
      wish_(state, seenStreams_, frames.Code) {
  controls_.Setup.Command7.Click = [this] { Command7_Click(); };
  look_.Window.Load = [this] { Load(); };
  look_.Window.QueryUnload = [this] { CloseOnce(); };
  look_.Timer1.Elapsed = [this] { Timer1_Timer(); };
  look_.List1.Click = [this] { List1_Click(); };
  look_.Command1.Click = [this] { look_.Window.Unload(); };
}

void StreamFinder::Command7_Click() {
  for (const std::size_t field : FilterFields) controls_.Setup.Text1[field].Text = std::string();
  look_.Window.OpenModal();
  settings_.SetupDone = true;
  stored_.SaveSettings();
  services_.Events.Pump();
}

void StreamFinder::Load() {
  look_.Window.BackColor = Ground;
  look_.Label1.BackColor = Ground;
  look_.Frame1.BackColor = Ground;
  look_.List1.Clear();
  frames_ = 0;
  ended_ = "";
  seenStreams_.Clear();
  wish_.Clear();
  line_.Say({});
  ShowProgress();
  look_.Timer1.Enabled = false;
  look_.Timer1.Interval = BeginAfter;
  look_.Timer1.Enabled = true;
}

void StreamFinder::Timer1_Timer() {
  look_.Timer1.Enabled = false;
  capture_.SetupAdapter(LiveBuffer,
                        [this](const platform::CapturedFrame& frame) { return wish_.Of(frame); });
  capture_.StartCapture("LookingForID");
}

void StreamFinder::CaptureStopped() {
  if (look_.Window.Loaded) {
    if (state_.Leaving > 0) ended_ = TabLeft;
    // A look that has met no frame may have left some out.
    ShowProgress();
  } else if (state_.PacketLengthPending) {
    line_.Say({});
  }
}

void StreamFinder::CaptureRefused() {
  if (!look_.Window.Loaded) return;
  ended_ = FilterRefused;
  ShowProgress();
}

void StreamFinder::AddStreamToList(const std::string& id) {
  // A frame may be under way while the window closes.
  if (!look_.Window.Loaded) return;
  ++frames_;
  if (!seenStreams_.Holds(id) && !IsListed(id)) look_.List1.AddItem(id);
  seenStreams_.Append(id);
  const std::string_view text = read_.Last.Text();
  const StructuralIds ids({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()},
                          text.size());
  ListStructural(ids, id);
  wish_.Append(read_.Last, ids);
  ShowProgress();
}

void StreamFinder::ListStructural(const StructuralIds& ids, const std::string& searched) {
  for (const std::string_view octets : ids.Ids) {
    const std::string id = read_.Code.ToUtf8(octets);
    // One that is a part of what was met before is listed too where a search was misled: it is the
    // only filter that finds its sender.
    if (!id.empty() && id != searched && !IsListed(id)) look_.List1.AddItem(id);
  }
}

bool StreamFinder::IsListed(const std::string& id) const {
  const std::vector<platform::CheckItem>& items = look_.List1.Items.Get();
  return std::any_of(items.begin(), items.end(),
                     [&](const platform::CheckItem& item) { return item.Text == id; });
}

void StreamFinder::ShowProgress() {
  std::string text = frames_ == 0   ? "No frame was looked at yet."
                     : frames_ == 1 ? "1 frame was looked at."
                                    : std::to_string(frames_) + " frames were looked at.";
  for (const std::string& further : {Unreadable(), LeftOut(), std::string(ended_)}) {
    if (!further.empty()) text += " " + further;
  }
  look_.FrameCount.Caption = text;
}

/// What they send is listed by what a search finds in it alone.
std::string StreamFinder::Unreadable() const {
  const std::size_t senders = wish_.Unreadable();
  if (senders == 0) return {};
  return std::to_string(senders) + (senders == 1 ? " sender sends" : " senders send") +
         " what is no sampled value by its structure: " + sv::Words(wish_.LastFault()) + ".";
}

/// The senders of these frames are not found, and nothing else would say so.
std::string StreamFinder::LeftOut() const {
  const std::uint64_t tooLong = wish_.TooLong();
  if (tooLong == 0) return {};
  return std::to_string(tooLong) + (tooLong == 1 ? " frame was" : " frames were") +
         " longer than expected and left out: RUN on a view measures the length anew.";
}

void StreamFinder::List1_Click() {
  if (look_.List1.CheckedCount() <= MostChecked) return;
  services_.Dialogs.Show({"Attention",
                          "Please take care, only the first 2 items can be checked for recording!",
                          platform::Icon::Information});
  look_.List1.SetChecked(look_.List1.ListIndex, false);
}

void StreamFinder::CloseOnce() {
  // The end has pumps, in which the window may be closed once more.
  if (closing_) return;
  const platform::Raised closing(closing_);
  TakeStreamChoice();
  line_.Say(LeftOut());
}

void StreamFinder::TakeStreamChoice() {
  look_.Timer1.Enabled = false;
  run_.CallOffTimers();
  // A restart that waits in a pump, with this window closing inside of it, starts nothing any more.
  run_.LeavePage();
  capture_.EndRun("LookingForID");
  auto& stations = controls_.Shared.Option3;
  std::size_t taken = 0;
  const std::vector<platform::CheckItem> items = look_.List1.Items;
  for (const platform::CheckItem& item : items) {
    if (!item.Checked || taken == FilterFields.size()) continue;
    controls_.Setup.Text1[FilterFields[taken]].Text = item.Text;
    if (taken == 0) {
      // A lone stream stands in both choices of a view. The second field gives the other choice its
      // own text when it is filled.
      for (std::size_t i = 0; i < forms::station::Report; ++i) stations[i].Caption = item.Text;
    }
    ++taken;
  }
}

}  // namespace packetroutines
