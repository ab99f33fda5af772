#include "adapters/interfaces/network_interface.h"

#include <pcap/pcap.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

#include "adapters/interfaces/hardware_type.h"
#include "adapters/rights/capture_right.h"

namespace adapters {

namespace {

namespace failure = platform::failure;

/// A heap is handed over when it is so old, if it is not full before.
constexpr int HeapMilliseconds = 20;

/// Capture devices of the library that are no network interfaces. They are known by name, because
/// without rights none of them can be asked what it carries. Some exist once, under just this name,
/// and some have a number or a word behind it.
constexpr std::array<std::string_view, 3> PseudoDevices{"any", "nflog", "nfqueue"};
constexpr std::array<std::string_view, 3> PseudoFamilies{"usbmon", "bluetooth", "dbus-"};

bool IsPseudoDevice(std::string_view name) {
  return std::find(PseudoDevices.begin(), PseudoDevices.end(), name) != PseudoDevices.end() ||
         std::any_of(PseudoFamilies.begin(), PseudoFamilies.end(),
                     [&](std::string_view family) { return name.starts_with(family); });
}

using DeviceList = std::unique_ptr<pcap_if_t, decltype(&pcap_freealldevs)>;

/// The library's list of devices; absent where the system does not tell.
std::optional<DeviceList> FindDevices() {
  std::array<char, PCAP_ERRBUF_SIZE> words{};
  pcap_if_t* found = nullptr;
  if (pcap_findalldevs(&found, words.data()) != 0) return std::nullopt;
  return DeviceList(found, &pcap_freealldevs);
}

/// On Linux a port of the computer has its hardware among the system's files. Elsewhere this cannot
/// be told, and what is not the loop passes for a port.
InterfaceKind KindOf(const pcap_if_t& device) {
  if ((device.flags & PCAP_IF_LOOPBACK) != 0) return InterfaceKind::Loopback;
  if ((device.flags & PCAP_IF_WIRELESS) != 0) return InterfaceKind::Other;
  const std::filesystem::path interfaces("/sys/class/net");
  std::error_code error;
  const bool known = std::filesystem::exists(interfaces, error);
  const bool port = std::filesystem::exists(interfaces / device.name / "device", error);
  return port || !known ? InterfaceKind::Port : InterfaceKind::Other;
}

/// Whether any interface could be opened. It is asked once for all of them: one that is opened with
/// its ring takes the system some 30 ms, and a start waits for the list.
Reach AskForCapture(std::string& words) {
  const int error = TryRawSocket();
  if (error == 0) return Reach::Ready;
  if (error == EPERM || error == EACCES) return Reach::NoRight;
  words = std::generic_category().message(error);
  return Reach::Broken;
}

Reach ReachOf(int status) {
  switch (status) {
    case PCAP_ERROR_PERM_DENIED:
    case PCAP_ERROR_PROMISC_PERM_DENIED:
      return Reach::NoRight;
    case PCAP_ERROR_IFACE_NOT_UP:
      return Reach::Down;
    case PCAP_ERROR_NO_SUCH_DEVICE:
      return Reach::Missing;
    default:
      return status < 0 ? Reach::Broken : Reach::Ready;
  }
}

void Configure(pcap_t* handle, const OpenRequest& request) {
  pcap_set_snaplen(handle, request.SnapshotBytes);
  pcap_set_buffer_size(handle, request.BufferBytes);
  pcap_set_promisc(handle, request.Promiscuous ? 1 : 0);
  pcap_set_immediate_mode(handle, request.InHeaps ? 0 : 1);
  if (request.InHeaps) pcap_set_timeout(handle, HeapMilliseconds);
}

/// The library asks for the raw socket in here, and for nothing else that takes a right. It leaves
/// the socket to children, and nobody starts one before it is told better.
int Activate(pcap_t* handle) {
  const RaisedRight right;
  const int status = pcap_activate(handle);
  if (status >= 0) KeepFromChildren(pcap_fileno(handle));
  return status;
}

Reach StateOf(const pcap_if_t& device) {
  return (device.flags & PCAP_IF_UP) != 0 ? Reach::Ready : Reach::Down;
}

std::string TitleOf(const pcap_if_t& device) {
  if (device.description == nullptr) return std::string(device.name) + " (network interface)";
  return std::string(device.description) + " (" + device.name + ")";
}

}  // namespace

OpenResult OpenInterface(const std::string& name, const OpenRequest& request) {
  std::array<char, PCAP_ERRBUF_SIZE> words{};
  OpenResult result;
  result.Handle.reset(pcap_create(name.c_str(), words.data()));
  if (!result.Handle) {
    result.Words = words.data();
    return result;
  }
  Configure(result.Handle.get(), request);
  const int status = Activate(result.Handle.get());
  result.State = ReachOf(status);
  if (result.State != Reach::Ready) {
    result.Words = pcap_geterr(result.Handle.get());
    if (result.Words.empty()) result.Words = pcap_statustostr(status);
  } else if (pcap_datalink(result.Handle.get()) != DLT_EN10MB) {
    result.State = Reach::NotEthernet;
  } else if (pcap_setnonblock(result.Handle.get(), 1, words.data()) != 0) {
    result.State = Reach::Broken;
    result.Words = words.data();
  }
  if (result.State != Reach::Ready) result.Handle.reset();
  return result;
}

std::vector<NetworkInterface> ListNetworkInterfaces() {
  const std::optional<DeviceList> devices = FindDevices();
  // A computer that cannot list its interfaces still has the simulated bus and the files.
  if (!devices) return {};
  std::vector<NetworkInterface> interfaces;
  std::string words;
  const Reach asked = AskForCapture(words);
  for (const pcap_if_t* device = devices->get(); device != nullptr; device = device->next) {
    if (IsPseudoDevice(device->name) || !CarriesEthernet(device->name)) continue;
    const bool off = asked == Reach::Ready && StateOf(*device) == Reach::Down;
    interfaces.push_back(
        {device->name, TitleOf(*device), off ? Reach::Down : asked, KindOf(*device), words});
  }
  return interfaces;
}

Reach PresentState(const std::string& name) {
  const std::optional<DeviceList> devices = FindDevices();
  if (!devices) return Reach::Ready;
  for (const pcap_if_t* device = devices->get(); device != nullptr; device = device->next) {
    if (name == device->name) return StateOf(*device);
  }
  return Reach::Missing;
}

platform::Failure InterfaceFailure(const std::string& name, Reach state, const std::string& words,
                                   const std::string& rightAdvice) {
  const std::string network = "The network interface " + name;
  switch (state) {
    case Reach::NoRight:
      return {
          failure::PermissionDenied,
          "There is no right to capture from the network interface " + name + ". " + rightAdvice};
    case Reach::Down:
      return {failure::DeviceIo, network +
                                     " is down. Please switch it on (on Linux: sudo ip link "
                                     "set " +
                                     name + " up) and try again."};
    case Reach::Missing:
      return {failure::DeviceIo, network +
                                     " is gone. Please connect it again, or choose another "
                                     "network adapter."};
    case Reach::NotEthernet:
      return {failure::DeviceIo, network +
                                     " does not carry Ethernet frames. Please choose another "
                                     "network adapter."};
    default:
      return {failure::DeviceIo, network + " cannot be used: " + words +
                                     ". Please check it, or "
                                     "choose another network adapter."};
  }
}

}  // namespace adapters
