#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "base/failure.h"

namespace platform {

/// One received frame, from the first byte of the destination address. `Length` is the true length
/// on the wire in bytes; a source may hold fewer bytes of a very long frame.
struct CapturedFrame {
  std::span<const std::uint8_t> Bytes;
  std::size_t Length = 0;
  /// When it came in, by the computer's clock, since 1970 began in Greenwich.
  std::chrono::microseconds Arrived{0};
};

/// How much a caller would like to meet a frame.
enum class Wanted : std::uint8_t { No, Rather, Most };

/// What a caller that takes few of the frames would like to meet. It is asked once for each frame
/// that waits to be handed over, and only looks at it.
using FrameWish = std::function<Wanted(const CapturedFrame&)>;

/// The names of an adapter's properties.
namespace adapter_property {

/// Bytes of frames that the driver buffers.
inline constexpr std::string_view BufferSize = "BuffSize";
/// Bytes that the driver gathers before it delivers; with 0 each frame comes at once.
inline constexpr std::string_view BytesToGather = "BuffMinToCopy";
/// `PromiscuousReception`, or another packet type of the driver.
inline constexpr std::string_view HardwareFilter = "HWFilter";
/// `CaptureMode`.
inline constexpr std::string_view Mode = "mode";
/// Filter expression in the syntax of libpcap.
inline constexpr std::string_view Filter = "BPFilter";

}  // namespace adapter_property

/// The NDIS packet type of promiscuous reception.
inline constexpr std::int32_t PromiscuousReception = 32;
inline constexpr std::int32_t CaptureMode = 1;

/// One place where frames come from.
class CaptureAdapter {
 public:
  /// A whole number or a text, whichever the property takes.
  using Value = std::variant<std::int32_t, std::string>;

  virtual ~CaptureAdapter() = default;
  /// The adapter can capture.
  virtual bool IsGood() const = 0;
  virtual std::string Description() const = 0;
  /// Sets the property of a name in `adapter_property`. The filter is the last one set and readies
  /// the adapter; an adapter that cannot be opened fails there, a filter that is refused fails at
  /// the start.
  virtual void Set(std::string_view property, const Value& value) = 0;
};

/// Whether an adapter is there to deliver.
enum class Presence { There, SwitchedOff, Gone };

/// The capture control: at most one adapter in use, one frame an event, on the program's thread.
class CaptureObject {
 public:
  virtual ~CaptureObject() = default;
  virtual std::int32_t AdapterCount() const = 0;
  /// The adapter at a 1-based index; failure 9 outside the list.
  virtual CaptureAdapter& Adapters(std::int32_t index) = 0;
  virtual void SetAdapter(CaptureAdapter& adapter) = 0;
  virtual CaptureAdapter& Adapter() = 0;
  /// States what the caller would like to meet from the next start on, in the place of the wish
  /// before; an empty one ends it.
  virtual void SetWish(FrameWish wish) = 0;
  /// Begins delivery. The first start after the adapter was readied delivers the longest of the
  /// frames that it finds on the bus before the others, because the first frame tells the program
  /// what length to expect, and right behind it the one that is wanted most. While there is a wish,
  /// a later start delivers the one that is wanted most before the others. Where none is wanted it
  /// delivers what comes as it comes. Fails only for a refused filter, with
  /// `failure::FilterRefused`. An adapter that could not be readied has told so before; its start
  /// is legal and delivers nothing.
  virtual void Start() = 0;
  /// Ends delivery; frames that arrive until the next start are lost. Legal when idle.
  virtual void Stop() = 0;
  /// Raises `OnPacket` for each frame that has arrived before this moment and was not handed over
  /// yet, while delivery runs. What arrives later waits for the stop, which drops it.
  virtual void DeliverArrived() = 0;
  /// What the system tells of the adapter in use at present. An interface that went away goes on
  /// by itself when it is back. Asking costs a look at the system, so it is for times without
  /// frames.
  virtual Presence AdapterPresence() = 0;
  /// Frames that the system has dropped since the program began, because nobody took them in time;
  /// nothing where the adapter in use does not count them.
  virtual std::optional<std::uint64_t> Dropped() = 0;
  /// One received frame; valid until the handler returns, also where it stops, starts or pumps.
  std::function<void(const CapturedFrame&)> OnPacket;
};

/// The capture library's collection of packets, only ever emptied.
class PacketCollection {
 public:
  virtual ~PacketCollection() = default;
  virtual void Clear() = 0;
};

/// The capture library as a whole.
class CaptureLayer {
 public:
  virtual ~CaptureLayer() = default;
  virtual std::unique_ptr<CaptureObject> NewCaptureObject() = 0;
  virtual std::unique_ptr<PacketCollection> NewPacketCollection() = 0;
  /// Puts a capture file into the list of the capture object that was made last, behind the
  /// adapters that can capture, and gives its place, which is 1-based; a file that is there already
  /// keeps its own. Fails with a text for the user where it cannot be played, which is so for every
  /// file where the list is not the user's to change.
  virtual std::int32_t AddFile(const std::string& path) {
    throw Failure(failure::PathFileAccess, path + " cannot be played here.");
  }
  /// What a user can do about interfaces and files that cannot be used; empty when there is nothing
  /// to tell.
  virtual std::string Advice() const = 0;
};

/// What the platform's event loop needs of a capture layer to bring its frames to the program.
class FrameDelivery {
 public:
  virtual ~FrameDelivery() = default;
  /// Raises `OnPacket` for one frame that is due; False when none is due.
  virtual bool DeliverOne() = 0;
  /// Called when delivery begins (True) and ends (False).
  std::function<void(bool)> Running;
};

}  // namespace platform
