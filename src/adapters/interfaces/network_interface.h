#pragma once

#include <string>
#include <vector>

#include "adapters/pcap_handle.h"
#include "base/failure.h"

namespace adapters {

/// Whether frames can be had from an interface, and if not, why.
enum class Reach { Ready, NoRight, Down, Missing, NotEthernet, Broken };

/// A wired port of the computer, where a process bus may come in; a wireless or virtual interface;
/// or the computer's own loop.
enum class InterfaceKind { Port, Other, Loopback };

/// A network interface of this computer.
struct NetworkInterface {
  /// The name under which it is opened.
  std::string Name;
  /// What to call it before the user.
  std::string Title;
  Reach State = Reach::Broken;
  InterfaceKind Kind = InterfaceKind::Port;
  /// The library's words where the state is not `Ready`.
  std::string Words = {};
};

/// How an interface is to be opened.
struct OpenRequest {
  int SnapshotBytes = 0;
  int BufferBytes = 0;
  bool Promiscuous = false;
  /// Frames are handed over heap by heap rather than one by one.
  bool InHeaps = false;
};

/// What came of opening: the handle where `State` is `Ready`, the library's words otherwise.
struct OpenResult {
  PcapHandle Handle;
  Reach State = Reach::Broken;
  std::string Words;
};

/// Opens an interface so that reading never waits, and each frame is there at once where heaps are
/// not asked for.
OpenResult OpenInterface(const std::string& name, const OpenRequest& request);

/// The Ethernet interfaces of this computer, each with whether it can capture, as far as that is
/// known before it is opened. Devices that carry something else than Ethernet are left out.
std::vector<NetworkInterface> ListNetworkInterfaces();

/// Whether the system lists an interface, and as switched on; `Ready` where it does not tell.
Reach PresentState(const std::string& name);

/// The failure that tells the user what became of an interface and what to do; `rightAdvice` says
/// how the right is had where it is missing.
platform::Failure InterfaceFailure(const std::string& name, Reach state, const std::string& words,
                                   const std::string& rightAdvice);

}  // namespace adapters
