#pragma once

#include <cstddef>
#include <cstdint>

/// What an input of the packet fuzzer is made of: a few bytes that set the scene, and behind them
/// acts, each with the bytes that tell how.
namespace fuzz {

/// What runs when the acts begin.
enum class Opening : std::uint8_t {
  Nothing,
  Values,
  RealTime,
  Phasor,
  Waveforms,
  Recorder,
  Report
};
inline constexpr std::size_t Openings = 7;

enum class Act : std::uint8_t {
  /// Frames of one sender and one kind: sender, kind, two bytes for the kind, how many, how fast.
  Frames,
  /// One frame byte by byte: its length on the wire, its bytes.
  RawFrame,
  /// A run button.
  Press,
  /// A tab, as the user chooses it.
  Tab,
  /// Time passes.
  Elapse,
  /// What follows happens in one of the next pumps.
  AtPump,
  /// A text in a field of the Setup view.
  Field,
  /// An option, a check box, an entry of a list.
  Choice,
  /// The stream finder, with what happens below its window.
  Finder,
  /// Frames that wait when STOP comes.
  Arrivals,
  /// The clock is set.
  Clock,
  /// Adapter, disk or capture fail, or are mended.
  Trouble,
  /// Another size of the window.
  Size,
  /// A click on something that is no run button.
  Click,
  /// The window is to be closed, or the session ends.
  Close
};
inline constexpr std::size_t Acts = 15;

/// What is wrong with the frames of a burst.
enum class FrameKind : std::uint8_t {
  Sound,
  Flipped,
  Cut,
  Overlong,
  Noise,
  /// A byte is the one of the script in each frame.
  Pinned,
  /// A byte is another one in each frame.
  Ramp,
  /// The source holds fewer bytes than the frame has.
  Snapped,
  /// The counter jumps, stands still or goes back.
  Jumping,
  /// The front of one sender's frame, the back of another's.
  Spliced,
  /// Any of these.
  Mixed
};
inline constexpr std::size_t FrameKinds = 11;

}  // namespace fuzz
