#include "recorder/disk_report.h"

namespace packetroutines {

namespace {

constexpr double BytesOfKilobyte = 1000;
constexpr const char* Grouped = "###,###,###,##0";

}  // namespace

void DiskReport::Begin() {
  rings_ = {};
  for (platform::Label& caption : recorder_.OnDisk) caption.Caption = std::string();
  recorder_.NotStored.Say({});
}

void DiskReport::RingStored(std::size_t stream, const std::string& path) {
  const std::int64_t rings = ++rings_[stream];
  const auto kilobytes = static_cast<double>(files_.FileSize(path)) / BytesOfKilobyte;
  recorder_.OnDisk[stream].Caption = "stream " + std::to_string(stream + 1) + ": " +
                                     numbers_.Format(static_cast<double>(rings), Grouped) +
                                     (rings == 1 ? " whole ring, " : " whole rings, ") +
                                     numbers_.Format(kilobytes, Grouped) + " kB on disk";
}

void DiskReport::NotStored(const platform::Failure& reason) {
  if (!recorder_.NotStored.Caption.Get().empty()) return;
  recorder_.NotStored.Say("not stored since " + calendar_.GeneralText(calendar_.Now()) + ": " +
                          reason.Text());
}

}  // namespace packetroutines
