// Sets the clock of the computer for one program, which is started with this library in front of
// all others. Nobody else on the computer sees it. The file VORNIK_CLOCK_FILE holds two numbers of
// eight bytes, at any time: a moment, in seconds since 1970 by the clock as it was, and how many
// seconds more the clock shows from then on. A moment of 0 never comes.
//
// What tells intervals goes on as it was. The system stamps captured frames by the same clock when
// they come in: the stamps of those that come later follow it, and those that wait keep theirs.

#include <dlfcn.h>
#include <fcntl.h>
#include <pcap/pcap.h>
#include <sys/mman.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>

namespace {

struct Setting {
  double Moment;
  double By;
};

/// The file, which others write to.
const volatile Setting* Asked() {
  static const Setting never{};
  const char* path = std::getenv("VORNIK_CLOCK_FILE");
  const int file = path == nullptr ? -1 : open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return &never;
  void* const mapped = mmap(nullptr, sizeof(Setting), PROT_READ, MAP_SHARED, file, 0);
  close(file);
  return mapped == MAP_FAILED ? &never : static_cast<const Setting*>(mapped);
}

/// By how much a time that the computer's clock has shown is moved.
time_t Moved(time_t seconds, double fraction) {
  static const volatile Setting* const setting = Asked();
  const double moment = setting->Moment;
  if (moment == 0 || static_cast<double>(seconds) + fraction < moment) return 0;
  return static_cast<time_t>(setting->By);
}

template <typename Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* shown) noexcept {
  static auto* const next = Next<int(clockid_t, timespec*)>("clock_gettime");
  const int result = next(clock, shown);
  const bool isSet = clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE;
  if (result == 0 && isSet) {
    shown->tv_sec += Moved(shown->tv_sec, static_cast<double>(shown->tv_nsec) * 1e-9);
  }
  return result;
}

int gettimeofday(timeval* shown, void*) noexcept {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  *shown = {now.tv_sec, now.tv_nsec / 1000};
  return 0;
}

time_t time(time_t* shown) noexcept {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  if (shown != nullptr) *shown = now.tv_sec;
  return now.tv_sec;
}

int pcap_next_ex(pcap_t* handle, pcap_pkthdr** header, const u_char** bytes) {
  static auto* const next = Next<int(pcap_t*, pcap_pkthdr**, const u_char**)>("pcap_next_ex");
  const int result = next(handle, header, bytes);
  if (result == 1) {
    timeval& stamp = (*header)->ts;
    stamp.tv_sec += Moved(stamp.tv_sec, static_cast<double>(stamp.tv_usec) * 1e-6);
  }
  return result;
}

}  // extern "C"
