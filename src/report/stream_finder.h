#pragma once

#include <cstdint>
#include <string>

#include "capture/acquisition_state.h"
#include "capture/capture_session.h"
#include "capture/consumers.h"
#include "capture/packet_bytes.h"
#include "capture/run_control.h"
#include "config/settings.h"
#include "config/stored_settings.h"
#include "forms/id_look.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"
#include "platform/services/code_page.h"
#include "platform/services/services.h"
#include "report/seen_streams.h"
#include "report/sender_wish.h"
#include "report/structural_ids.h"

namespace packetroutines {

/// What the stream finder shows and fills in: its own window, the fields of the Setup view, the
/// choices of a station.
struct FinderControls {
  forms::IDlook& Look;
  forms::SetupControls& Setup;
  forms::SharedControls& Shared;
};

/// How the finder reads frames: the one that came last, and the code page of their texts.
struct FinderFrames {
  const PacketBytes& Last;
  const platform::CodePage& Code;
};

/// The window that listens to the bus, one frame at a time, and lists whoever sends. When it
/// closes, the first two senders that are checked become the content filters.
class StreamFinder : public FinderConsumer {
 public:
  StreamFinder(const FinderControls& controls, const RunFields& state, RunControl& run,
               config::Settings& settings, subroutines::StoredSettings& stored,
               CaptureSession& capture, const FinderFrames& frames,
               const platform::Services& services);

  /// Adds the ID of a frame to the list, unless it is part of what was met before, and behind it
  /// what the structure of the frame tells, unless it is listed: a filter that the search was
  /// misled to never finds its sender.
  void AddStreamToList(const std::string& id) override;
  /// Closes the window, if it is open.
  void UnloadIDlook() override { look_.Window.Unload(); }
  /// A look has ended or begins, or a run of a view begins.
  void CaptureStopped() override;
  void CaptureRefused() override;

 private:
  void Command7_Click();
  void Load();
  void Timer1_Timer();
  void List1_Click();
  void CloseOnce();
  void TakeStreamChoice();
  void ShowProgress();
  std::string LeftOut() const;
  std::string Unreadable() const;
  void ListStructural(const StructuralIds& ids, const std::string& searched);
  bool IsListed(const std::string& id) const;

  forms::IDlook& look_;
  FinderControls controls_;
  /// What the Setup view tells of a search that is over.
  platform::QuietLine& line_;
  const RunFields& state_;
  RunControl& run_;
  config::Settings& settings_;
  subroutines::StoredSettings& stored_;
  CaptureSession& capture_;
  platform::Services services_;

  FinderFrames read_;
  SeenStreams seenStreams_;
  SenderWish wish_;
  /// Frames that were looked at since the window opened.
  std::uint64_t frames_ = 0;
  /// Why nothing more comes, while the window still stands.
  const char* ended_ = "";
  bool closing_ = false;
};

}  // namespace packetroutines
