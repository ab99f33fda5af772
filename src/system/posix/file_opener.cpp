#include "system/posix/file_opener.h"

#include <utility>

#include "system/opening.h"
#include "system/places.h"

namespace host {

namespace open_code = platform::open_code;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

constexpr const char* DesktopsOpener = "xdg-open";
/// From one look at an opener to the next; one that has found a viewer is nobody waited for.
constexpr milliseconds SoonLook{10};
constexpr milliseconds LateLook{2000};

/// What the exit code of the desktop's opener means.
std::int32_t CodeOf(int exitCode) {
  constexpr int FileIsMissing = 2;
  if (exitCode == 0) return open_code::Opened;
  return exitCode == FileIsMissing ? open_code::FileNotFound : open_code::NoViewer;
}

}  // namespace

FileOpener::FileOpener(platform::Alarm& alarm, Enter enter)
    : alarm_(alarm), enter_(std::move(enter)) {
  alarm_.Rings = [this] {
    Look();
    PassAnswersOn();
  };
}

FileOpener::~FileOpener() {
  alarm_.Stop();
  alarm_.Rings = nullptr;
}

void FileOpener::OpenFile(const std::string& path, const Told& told) {
  const std::filesystem::path place = PlaceOf(path);
  if (const auto code = InTheWay(place)) {
    told(*code);
    return;
  }
  std::error_code unknown;
  const std::string file = Utf8(std::filesystem::absolute(place, unknown).lexically_normal());
  if (const auto opener = ChildProcess::Start(DesktopsOpener, {file})) {
    openings_.push_back({*opener, told, steady_clock::now()});
  } else {
    answers_.emplace_back([told] { told(open_code::NoViewer); });
  }
  alarm_.Set(milliseconds(0));
}

void FileOpener::Look() {
  const auto now = steady_clock::now();
  std::erase_if(openings_, [&](const Opening& opening) {
    const std::optional<int> ended = opening.Opener.ExitCode();
    if (!ended) return false;
    const bool taken = now - opening.Begun > TakenAfter;
    const std::int32_t code = taken ? open_code::Opened : CodeOf(*ended);
    answers_.emplace_back([told = opening.Answer, code] { told(code); });
    return true;
  });
  LookAgain();
}

void FileOpener::LookAgain() {
  if (openings_.empty()) return;
  // The last one began last.
  const bool fresh = steady_clock::now() - openings_.back().Begun <= TakenAfter;
  alarm_.Set(fresh ? SoonLook : LateLook);
}

void FileOpener::Release() {
  --holds_;
  // The routine that showed the box comes first.
  alarm_.Set(milliseconds(0));
}

void FileOpener::PassAnswersOn() {
  while (holds_ == 0 && !answers_.empty()) {
    const std::function<void()> answer = std::move(answers_.front());
    answers_.pop_front();
    enter_(answer);
  }
}

}  // namespace host
