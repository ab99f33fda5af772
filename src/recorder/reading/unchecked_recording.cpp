#include "recorder/reading/unchecked_recording.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <string_view>

#include "base/failure.h"
#include "recorder/reading/reading_context.h"
#include "recorder/writing/record_names.h"
#include "recorder/writing/text_format.h"

namespace packetroutines {

namespace {

/// The name of a recording; its letters behind the beginning stand for digits.
constexpr std::string_view Form = "SV record dd.mm.yyyy hh-MM-ss.txt";
constexpr std::size_t Beginning = 10;
constexpr std::size_t Extension = 4;
/// The files of a recording, by what stands in front of its name.
constexpr std::array<std::string_view, 3> Prefixes = {"", FirstPrefix, SecondPrefix};

/// What lies in the folder of one recording.
struct Found {
  std::string Name;
  std::array<bool, Prefixes.size()> There{};
  std::array<bool, Prefixes.size()> Logged{};
};
/// By the digits of the moment from the year on, the newest first.
using Recordings = std::map<std::string, Found, std::greater<>>;

bool IsRecording(std::string_view name) {
  if (name.size() != Form.size()) return false;
  const std::size_t end = Form.size() - Extension;
  for (std::size_t i = 0; i < Form.size(); ++i) {
    const char wanted = Form[i];
    const bool digit = i >= Beginning && i < end &&
                       ((wanted >= 'a' && wanted <= 'z') || (wanted >= 'A' && wanted <= 'Z'));
    if (digit ? name[i] < '0' || name[i] > '9' : name[i] != wanted) return false;
  }
  return true;
}

std::string OrderOf(std::string_view name) {
  std::string order;
  // Year, month, day, and the time of day.
  for (const auto& [at, count] :
       std::array<std::array<std::size_t, 2>, 4>{{{16, 4}, {13, 2}, {10, 2}, {21, 8}}}) {
    order += name.substr(at, count);
  }
  return order;
}

/// Takes what begins so from the front of a name.
bool Take(std::string_view& name, std::string_view beginning) {
  if (!name.starts_with(beginning)) return false;
  name.remove_prefix(beginning.size());
  return true;
}

void Note(Recordings& recordings, std::string_view name) {
  const bool log = Take(name, LogBeginning) || Take(name, CheckBeginning);
  std::size_t prefix = 0;
  if (Take(name, FirstPrefix)) {
    prefix = 1;
  } else if (Take(name, SecondPrefix)) {
    prefix = 2;
  }
  if (!IsRecording(name)) return;
  Found& found = recordings[OrderOf(name)];
  found.Name = name;
  (log ? found.Logged : found.There)[prefix] = true;
}

std::optional<platform::LocalTime> MomentOf(const std::string& name) {
  try {
    return StartTimeOf(name, TextFacts.Extension);
  } catch (const platform::Failure&) {
    // Digits that are no date; whoever named it so was no recording.
    return std::nullopt;
  }
}

}  // namespace

std::optional<UncheckedRecording> FindUnchecked(
    const platform::FileSystem& files, const std::string& folder,
    const std::function<bool(const std::string& name)>& leftOut) {
  const std::string inFolder = folder + files.Separator();
  Recordings recordings;
  files.ListNames(folder, [&](std::string_view name) { Note(recordings, name); });
  for (const auto& [order, found] : recordings) {
    UncheckedRecording unchecked;
    for (std::size_t i = 0; i < Prefixes.size(); ++i) {
      if (!found.There[i] || found.Logged[i]) continue;
      const std::string name = std::string(Prefixes[i]) + found.Name;
      // Beside two streams lies an empty file without a prefix.
      if (files.FileSize(inFolder + name) == 0 || leftOut(name)) continue;
      unchecked.Names.push_back(name);
    }
    if (unchecked.Names.empty()) continue;
    const std::optional<platform::LocalTime> moment = MomentOf(found.Name);
    if (!moment) continue;
    unchecked.Start = *moment;
    return unchecked;
  }
  return std::nullopt;
}

}  // namespace packetroutines
