// Slows the disk down for one program, which is started with this library in front of all others.
// The file VORNIK_DISK_FILE holds two numbers of eight bytes, at any time: how many seconds a write
// takes, and how many it takes to bring a file to the disk.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

struct Setting {
  double Write;
  double Sync;
};

/// The file, which others write to.
const volatile Setting& Asked() {
  static const Setting never{};
  static const volatile Setting* const asked = []() -> const volatile Setting* {
    const char* path = std::getenv("VORNIK_DISK_FILE");
    const int file = path == nullptr ? -1 : open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0) return &never;
    void* const mapped = mmap(nullptr, sizeof(Setting), PROT_READ, MAP_SHARED, file, 0);
    close(file);
    return mapped == MAP_FAILED ? &never : static_cast<const Setting*>(mapped);
  }
  ();
  return *asked;
}

void Wait(double seconds) {
  if (seconds > 0) std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

}  // namespace

extern "C" {

size_t fwrite(const void* bytes, size_t size, size_t count, FILE* file) {
  static auto* const next =
      reinterpret_cast<size_t (*)(const void*, size_t, size_t, FILE*)>(dlsym(RTLD_NEXT, "fwrite"));
  // A ring of samples, and nothing that is printed.
  constexpr size_t Large = 100'000;
  if (size * count >= Large) Wait(Asked().Write);
  return next(bytes, size, count, file);
}

int fsync(int file) {
  static auto* const next = reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "fsync"));
  Wait(Asked().Sync);
  return next(file);
}

}  // extern "C"
