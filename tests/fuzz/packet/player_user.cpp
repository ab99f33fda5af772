// What the user and the computer do in an input.

#include <array>
#include <string>

#include "fuzz/demand.h"
#include "fuzz/packet/player.h"

namespace fuzz {

using support::SceneEnded;

namespace {

/// What a user may type, sense or not.
constexpr std::array<const char*, 24> Texts = {
    "MU01", "MU02", "",   "M\xC3\x9C 7", "MU",  "400",      "80",  "1",
    "0",    "4000", "-5", "0,5",         "50",  "60",       "1e9", "800000",
    "abc",  " ",    "M",  "99999999999", "200", "16.66667", "\"",  "not yet determinated"};

}  // namespace

/// What the user does goes through a handler of the window: a failure that no trap takes ends the
/// program there.
void Player::AsUser(const std::function<void()>& handler) {
  tally_.NoteAct();
  try {
    handler();
  } catch (const platform::Failure& failure) {
    // Setup refuses nothing that is typed; what does not convert is a failure.
    Demand(troubled_, "a failure leaves a handler: " + failure.Text());
    mayEnd_ = true;
    throw SceneEnded();
  }
}

void Player::GoTo(std::int16_t tab) {
  AsUser([&] { scene_.Main.TabStrip1.Choose(tab); });
}

void Player::Press(std::size_t button) {
  forms::Main& main = scene_.Main;
  const std::array<platform::CWButton*, 5> buttons = {
      &main.CWButton4, &main.CWButton2, &main.CWButton1, &main.CWButton3, &main.Command2};
  constexpr std::array<std::int16_t, 5> Tabs = {forms::tab::Values, forms::tab::Phasor,
                                                forms::tab::Waveforms, forms::tab::Recorder,
                                                forms::tab::Report};
  const std::size_t place = button % buttons.size();
  if (main.TabStrip1.SelectedTab != Tabs[place]) GoTo(Tabs[place]);
  // A recording has the name of its second.
  scene_.Calendar.Present.Second = (scene_.Calendar.Present.Second + 1) % 60;
  if (scene_.Calendar.Present.Second == 0) ++scene_.Calendar.Present.Minute;
  platform::CWButton& pressed = *buttons[place];
  if (pressed.Visible && pressed.Enabled) AsUser([&] { pressed.Value = !pressed.Value; });
}

void Player::EditField(Script& script) {
  const std::size_t field = script.Below(forms::setup_field::Count);
  const std::size_t text = script.Below(Texts.size() + 1);
  const std::string typed = text < Texts.size() ? Texts[text] : script.Text(6);
  GoTo(forms::tab::Setup);
  troubled_ = true;
  AsUser([&] { scene_.Main.Text1[field].Text = typed; });
}

void Player::Choose(Script& script) {
  forms::Main& main = scene_.Main;
  if (script.Yes()) return ChooseOfRun(script);
  GoTo(forms::tab::Setup);
  const std::array<platform::ComboBox*, 7> lists = {
      &main.Combo1,    &main.Combo2,    &main.Combo3,   &main.Combo4[0],
      &main.Combo4[1], &main.Combo5[0], &main.Combo5[1]};
  platform::ComboBox& list = *script.OneOf(lists);
  const std::int32_t count = list.ListCount();
  const std::uint8_t entry = script.Byte();
  if (count > 0) AsUser([&] { list.ListIndex = entry % count; });
}

/// What can be chosen while a view runs.
void Player::ChooseOfRun(Script& script) {
  forms::Main& main = scene_.Main;
  const std::uint8_t which = script.Byte();
  AsUser([&] {
    switch (script.Below(9)) {
      case 0:
        main.Option3[which % main.Option3.size()].Value = true;
        break;
      case 1:
        main.Check5.Value = static_cast<std::int16_t>(which & 1U);
        break;
      case 2:
        main.Check6.Value = static_cast<std::int16_t>(which & 1U);
        break;
      case 3:
        main.Check2[which % main.Check2.size()].Value = static_cast<std::int16_t>(which >> 7U);
        break;
      case 4:
        main.sevOption1[which % main.sevOption1.size()].Value = true;
        break;
      case 5:
        main.Label5[which % main.Label5.size()].Click();
        break;
      case 6:
        main.Option2[which % main.Option2.size()].Value = true;
        break;
      case 7:
        main.Option1[which % main.Option1.size()].Value = true;
        break;
      default:
        main.Check4.Value = static_cast<std::int16_t>(which & 1U);
        break;
    }
  });
}

void Player::Click(Script& script) {
  forms::Main& main = scene_.Main;
  forms::EndQuestion& question = scene_.App.Windows.EndQuestion;
  const std::uint8_t which = script.Byte();
  const auto press = [](platform::CommandButton& button) {
    if (button.Visible && button.Enabled) button.Click();
  };
  AsUser([&] {
    switch (which % 12) {
      case 0:
        return press(main.Command1);
      case 1:
        return main.Command1.MouseDown(platform::mouse_button::Right);
      case 2:
        return press(main.Command4);
      case 3:
        return press(main.Command9);
      case 4:
        return press(main.CheckRecording);
      case 5:
        return press(main.OpenFolder);
      case 6:
        return main.CWGraph1.DblClick();
      case 7:
        return main.CWGraph1.MouseDown(platform::mouse_button::Right);
      case 8:
        return main.CWGraph2.DblClick();
      case 9:
        return main.Label10[forms::record_line::FirstPath].DblClick();
      default:
        if (!question.Window.Loaded) return;
        return which % 2 == 0 ? question.Keep.Click() : question.End.Click();
    }
  });
}

void Player::Close(Script& script) {
  // Most inputs go on.
  const std::uint8_t way = script.Byte();
  if (way < 128) return;
  mayEnd_ = true;
  if (way % 3 == 0) {
    tally_.NoteAct();
    scene_.App.EndSession();
  } else if (way % 3 == 1) {
    AsUser([&] { scene_.Main.Window.QueryUnload(); });
  } else {
    GoTo(forms::tab::Exit);
  }
}

void Player::MakeTrouble(Script& script) {
  support::FakeCapture& capture = scene_.Capture;
  const std::uint8_t how = script.Byte();
  switch (script.Below(8)) {
    case 0:
      capture.AdapterPresence = static_cast<platform::Presence>(how % 3);
      break;
    case 1:
      capture.Dropped = how;
      break;
    case 2:
      capture.Waited = std::chrono::milliseconds(how);
      break;
    case 3:
      troubled_ = true;
      capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
      break;
    case 4:
      troubled_ = true;
      capture.StopFailure = platform::Failure(how < 128 ? platform::failure::HarmlessStop
                                                        : platform::failure::DeviceIo);
      break;
    case 5:
      capture.StartFailure.reset();
      capture.StopFailure.reset();
      break;
    default:
      MakeDiskTrouble(script);
      break;
  }
}

void Player::MakeDiskTrouble(Script& script) {
  const int in = 1 + script.Byte() % 16;
  diskFailed_ = true;
  scene_.Disk.Number = script.Yes() ? platform::failure::DiskFull : platform::failure::DeviceIo;
  scene_.Disk.AlsoBehind = script.Yes();
  switch (script.Below(8)) {
    case 0:
      scene_.Disk.FailingWrite = scene_.Disk.Writes + in;
      break;
    case 1:
      scene_.Disk.FailingOpen = scene_.Disk.Opens + in;
      break;
    case 2:
      scene_.Disk.FailingClose = scene_.Disk.Closes + in;
      break;
    case 3:
      scene_.Disk.FailingRead = scene_.Disk.Reads + in;
      break;
    case 4:
      scene_.Disk.FailingDelete = scene_.Disk.Deletes + in;
      break;
    case 5:
      scene_.Disk.Refusal = in < 8 ? platform::failure::PermissionDenied : 0;
      break;
    case 6:
      scene_.Files.Folders.clear();
      break;
    default:
      scene_.Sync.Lags = in < 8;
      scene_.Sync.Unreachable = in % 2 == 0;
      break;
  }
}

}  // namespace fuzz
