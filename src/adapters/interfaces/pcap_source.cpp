#include "adapters/interfaces/pcap_source.h"

#include <pcap/pcap.h>

#include <algorithm>
#include <array>
#include <utility>

#include "adapters/vlan_term.h"

namespace adapters {

namespace {

/// The longest Ethernet frame without an offload: 1500 bytes of data, addresses, type, tag,
/// checksum.
constexpr int WholeFrameBytes = 1522;
/// What the driver's ring takes for such a frame: the frame, 68 bytes of heads in front of it,
/// rounded up. Two of these slots fill a page, so a frame costs 2048 bytes of memory.
constexpr int SlotBytes = 1600;
/// A setting counts bytes of frames at the usual size of a sampled values frame, rounded to 128;
/// the ring gets a slot for each, but no more than fit into 64 MiB.
constexpr int UsualFrameBytes = 128;
constexpr int FewestSlots = 2048;
constexpr int MostSlots = 32768;
/// Heaps are packed frame behind frame, so that the same memory holds ten times as many.
constexpr int HeapRingBytes = 64 << 20;

/// How often a lost interface is looked for.
constexpr std::chrono::milliseconds LostInterfacePause{500};

int RingBytes(const SourceSettings& settings) {
  if (settings.InHeaps) return HeapRingBytes;
  return std::clamp(settings.BufferBytes / UsualFrameBytes, FewestSlots, MostSlots) * SlotBytes;
}

/// A heap is handed over long before. What seems older bears the time of a clock that was set.
constexpr std::chrono::seconds OldestInHeap{1};

std::chrono::microseconds WallTime() {
  return std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::system_clock::now().time_since_epoch());
}

/// Lets nothing pass.
bpf_program RejectEverything() {
  static std::array<bpf_insn, 1> code{{BPF_STMT(BPF_RET | BPF_K, 0)}};
  return {static_cast<u_int>(code.size()), code.data()};
}

}  // namespace

PcapSource::PcapSource(std::string interfaceName, std::string rightAdvice)
    : name_(std::move(interfaceName)), rightAdvice_(std::move(rightAdvice)) {}

bool PcapSource::FitsOpenHandle(const SourceSettings& settings) const {
  return handle_ && !lost_ && settings.Promiscuous == settings_.Promiscuous &&
         settings.InHeaps == settings_.InHeaps && RingBytes(settings) == RingBytes(settings_);
}

void PcapSource::Prepare(const SourceSettings& settings) {
  Stop();
  if (handle_) Drain();
  if (!FitsOpenHandle(settings)) Open(settings);
  settings_ = settings;
  DemandUp();
}

OpenResult PcapSource::Opened(const SourceSettings& settings) const {
  return OpenInterface(name_, {.SnapshotBytes = WholeFrameBytes,
                               .BufferBytes = RingBytes(settings),
                               .Promiscuous = settings.Promiscuous,
                               .InHeaps = settings.InHeaps});
}

void PcapSource::Open(const SourceSettings& settings) {
  Release();
  OpenResult opened = Opened(settings);
  if (opened.State != Reach::Ready) {
    throw InterfaceFailure(name_, opened.State, opened.Words, rightAdvice_);
  }
  handle_ = std::move(opened.Handle);
  RejectAll();
}

void PcapSource::DemandUp() {
  const Reach state = PresentState(name_);
  if (state == Reach::Ready) return;
  // An interface that is down keeps its handle and goes on when it is switched on again.
  if (state == Reach::Missing) Release();
  throw InterfaceFailure(name_, state, {}, rightAdvice_);
}

void PcapSource::Drain() {
  pcap_pkthdr* header = nullptr;
  const u_char* bytes = nullptr;
  int read = 1;
  while (read == 1) read = pcap_next_ex(handle_.get(), &header, &bytes);
  if (read < 0) lost_ = true;
}

void PcapSource::CompileFilter() {
  if (program_ && programText_ == settings_.Filter) return;
  const bool testsTag = FindVlanTerm(settings_.Filter).has_value();
  program_.emplace(*handle_, settings_.Filter, settings_.Filter,
                   testsTag ? FilterProgram::Effort::Plain : FilterProgram::Effort::Optimised);
  programText_ = settings_.Filter;
}

void PcapSource::Start() {
  bound_.reset();
  if (handle_) Listen();
  running_ = true;
}

void PcapSource::Listen() {
  CompileFilter();
  if (running_) return;
  Drain();
  // A heap that is still being filled was not among what waited.
  begun_.reset();
  if (settings_.InHeaps) begun_ = WallTime();
  // An interface that went away between two bursts yields nothing, like one that goes away in a
  // burst. The expression was compiled, so what refuses it here is such an interface; it may be
  // back by now, but the handle has met the trouble.
  if (!lost_) lost_ = pcap_setfilter(handle_.get(), &program_->Code()) != 0;
}

void PcapSource::Stop() {
  if (running_ && handle_) RejectAll();
  running_ = false;
}

void PcapSource::TakeNoMore() {
  bound_ = WallTime();
}

void PcapSource::RejectAll() {
  // What comes while stopped would only fill the ring and count as lost. Where this fails, the
  // interface has gone or was switched off.
  bpf_program reject = RejectEverything();
  if (pcap_setfilter(handle_.get(), &reject) != 0) lost_ = true;
}

void PcapSource::Release() {
  CountDropped();
  running_ = false;
  lost_ = false;
  program_.reset();
  handle_.reset();
}

platform::Presence PcapSource::Presence() {
  switch (PresentState(name_)) {
    case Reach::Missing:
      return platform::Presence::Gone;
    case Reach::Down:
      return platform::Presence::SwitchedOff;
    default:
      return platform::Presence::There;
  }
}

void PcapSource::OpenAgain() {
  const auto now = std::chrono::steady_clock::now();
  if (bound_ || now < nextLook_) return;
  nextLook_ = now + LostInterfacePause;
  OpenResult opened = Opened(settings_);
  if (opened.State != Reach::Ready) return;
  CountDropped();
  handle_ = std::move(opened.Handle);
  // The code of the filter is the same for every handle of the interface.
  lost_ = pcap_setfilter(handle_.get(), &program_->Code()) != 0;
}

std::optional<platform::CapturedFrame> PcapSource::Next() {
  if (!running_ || !handle_) return std::nullopt;
  if (lost_) OpenAgain();
  if (lost_) return std::nullopt;
  pcap_pkthdr* header = nullptr;
  const u_char* bytes = nullptr;
  std::chrono::microseconds arrived{0};
  do {
    const int read = pcap_next_ex(handle_.get(), &header, &bytes);
    if (read < 0) lost_ = true;
    if (read != 1) return std::nullopt;
    arrived =
        std::chrono::seconds(header->ts.tv_sec) + std::chrono::microseconds(header->ts.tv_usec);
  } while (begun_ && CameBefore(arrived));
  if (bound_ && arrived > *bound_) return std::nullopt;
  return platform::CapturedFrame{{bytes, header->caplen}, header->len, arrived};
}

bool PcapSource::CameBefore(std::chrono::microseconds arrived) {
  if (arrived < *begun_ && *begun_ - arrived < OldestInHeap) return true;
  begun_.reset();
  return false;
}

void PcapSource::CountDropped() {
  dropped_ += Counters().Dropped;
}

std::optional<std::uint64_t> PcapSource::Dropped() {
  return dropped_ + Counters().Dropped;
}

PcapSource::Statistics PcapSource::Counters() const {
  pcap_stat counted{};
  if (!handle_ || pcap_stats(handle_.get(), &counted) != 0) return {};
  return {counted.ps_recv, counted.ps_drop};
}

}  // namespace adapters
