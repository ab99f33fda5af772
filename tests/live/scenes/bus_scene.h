#pragma once

#include <optional>
#include <string>
#include <vector>

#include "live/played_bus.h"
#include "live/program/finder_scene.h"
#include "live/scenes/bus_unit.h"

namespace desktop {

/// A scene on a whole bus. What was on the wire is listened to beside the program, and read a
/// second time; each step demands of the program what stands there.
class BusScene : public FinderScene {
 protected:
  void TearDown() override {
    // The bus goes before its wire does.
    bus_.reset();
    FinderScene::TearDown();
  }

  /// Plays a profile with so many senders and listens until all of them are heard.
  void Play(const std::string& profile, std::size_t senders, const std::string& arguments = "");
  /// The sender with this ID on the wire, the one that is read or, where no sender has that, the
  /// one by the structure; a scene's error where there is none.
  const live::BusUnit& Unit(const std::string& id) const;
  /// Finds all senders, a new one with each look, and takes two of them: the one that was listed
  /// first becomes the first stream.
  void FindSenders(std::string& first, std::string& second);
  /// RUN on the report meets the station of either choice.
  void ReportBoth(const std::string& first, const std::string& second);
  /// Both stations are shown by one run of the Values view; the first one at last.
  void ShowValues(const std::string& first, const std::string& second);
  void ShowPhasor(const std::string& id);
  void ShowWaveforms(const std::string& id);
  /// What the files hold is what was on the wire, in one piece.
  void Record(const std::string& first, const std::string& second);
  /// Two senders whose IDs a search misreads: what the finder lists of them leads to their values.
  void FindAndShow(std::string first, std::string second);
  /// All of it.
  void GoThroughAllViews(std::string first, std::string second);

  /// Types the filters; an empty one is none.
  void TypeStations(const std::string& first, const std::string& second);
  void Press(const char* runButton);
  /// Frames that the finder or the report has looked at.
  std::size_t Looks() const { return static_cast<std::size_t>(lookedAt_.size()); }
  bool WaitForReadings(const live::BusUnit& unit);
  std::string Readings();
  std::string WaitingLine();

 private:
  void ExpectAllListed(QDialog& finder);
  /// What the list must hold for the frames that were looked at: behind each ID that is read the
  /// one by the structure of that sender's frames.
  std::vector<std::string> ExpectedList() const;
  bool WasEachSenderLookedAt() const;
  void CheckBoth(QDialog& finder, std::string& first, std::string& second);
  void ExpectReported(const live::BusUnit& unit);
  std::string RowOf(std::size_t row);
  /// The frame of a report as far as its dump goes.
  live::Frame DumpedFrame();
  void ExpectStored(const live::BusUnit& unit, const std::vector<live::Frame>& sent,
                    const std::string& file);

  std::optional<live::PlayedBus> bus_;
  std::vector<live::BusUnit> units_;
};

}  // namespace desktop
