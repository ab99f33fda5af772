#include "adapters/capture_advice.h"

#include <algorithm>
#include <cstddef>

namespace adapters {

namespace {

/// Names in a line, and lines of single troubles.
constexpr std::size_t Most = 4;

std::string AndMore(std::size_t count) {
  return count <= Most ? std::string() : " and " + std::to_string(count - Most) + " more";
}

std::string Listed(const std::vector<std::string>& names) {
  std::string list;
  for (std::size_t i = 0; i < std::min(names.size(), Most); ++i) {
    list += (i == 0 ? "" : ", ") + names[i];
  }
  return list + AndMore(names.size());
}

}  // namespace

void CaptureAdvice::AddInterface(const NetworkInterface& found) {
  if (found.State == Reach::NoRight) withoutRight_.push_back(found.Name);
  if (found.Kind == InterfaceKind::Loopback) return;
  if (found.State == Reach::Ready || found.State == Reach::NoRight) hasChoice_ = true;
  if (found.State == Reach::Down) {
    (found.Kind == InterfaceKind::Port ? portsOff_ : othersOff_).push_back(found.Name);
  }
  if (found.State == Reach::Broken) {
    troubles_.push_back("The network interface " + found.Name + " cannot be used: " + found.Words +
                        ". Please check it.");
  }
}

void CaptureAdvice::AddFile(const std::filesystem::path& file, const std::string& trouble) {
  troubles_.push_back("The capture file " + file.filename().string() + " " + trouble);
}

std::string CaptureAdvice::Text(const std::string& rightAdvice) const {
  const std::string text = SwitchedOff() + Troubles();
  if (!withoutRight_.empty()) {
    return text +
           "There is no right to capture from the network interfaces: " + Listed(withoutRight_) +
           ".\n" + rightAdvice;
  }
  // The list is made once, at the start of the program; the advice on rights says so itself.
  return text.empty() ? text : text + "Then start the program again.";
}

std::string CaptureAdvice::SwitchedOff() const {
  const bool nothingElse = portsOff_.empty() && !hasChoice_;
  const std::vector<std::string>& names = nothingElse ? othersOff_ : portsOff_;
  if (names.empty()) return {};
  const std::string command = "on, on Linux: sudo ip link set " + names.front() + " up\n";
  if (names.size() == 1) {
    return "The network interface " + names.front() + " is switched off. To switch it " + command;
  }
  return "These network interfaces are switched off: " + Listed(names) + ". To switch one " +
         command;
}

std::string CaptureAdvice::Troubles() const {
  std::string lines;
  for (std::size_t i = 0; i < std::min(troubles_.size(), Most); ++i) lines += troubles_[i] + "\n";
  if (troubles_.size() > Most) lines += "..." + AndMore(troubles_.size()) + "\n";
  return lines;
}

}  // namespace adapters
