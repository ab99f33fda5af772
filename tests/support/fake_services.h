#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/failure.h"
#include "platform/services/file_system.h"
#include "platform/services/sleep_inhibitor.h"
#include "platform/services/standing_box.h"
#include "platform/services/system_services.h"
#include "support/journal.h"
#include "support/memory_files.h"

namespace support {

/// Folders that exist by name, and files in memory, which lie in them. The platform is Windows
/// until a scene moves it elsewhere.
class FakeFiles : public platform::FileSystem {
 public:
  std::string Separator() const override { return SeparatorText; }
  bool DirectoryExists(const std::string& path) const override { return Folders.count(path) > 0; }

  std::string DefaultFolder() const override { return Default; }
  std::string Native(const std::string& path) const override {
    const auto native = NativePaths.find(path);
    return native == NativePaths.end() ? path : native->second;
  }
  void MakeFolder(const std::string& path) override {
    Made.push_back(path);
    Folders.insert(path);
  }
  void ListNames(const std::string& folder,
                 const std::function<void(std::string_view name)>& take) const override {
    const std::string before = folder + SeparatorText;
    for (const auto& [path, content] : Stored) {
      if (path.starts_with(before)) take(std::string_view(path).substr(before.size()));
    }
  }
  platform::LocalTime LastWrite(const std::string& path) const override {
    if (!FileExists(path)) throw platform::Failure(platform::failure::FileNotFound);
    const auto written = Written.find(path);
    return written == Written.end() ? platform::LocalTime{2024, 3, 9, 14, 5, 7} : written->second;
  }
  bool FileExists(const std::string& path) const override { return Stored.count(path) > 0; }
  std::int64_t FileSize(const std::string& path) const override {
    const auto file = Stored.find(path);
    return file == Stored.end() ? 0 : static_cast<std::int64_t>(file->second.size());
  }
  std::optional<std::int64_t> FreeSpace(const std::string&) const override { return Free; }
  void DeleteFile(const std::string& path) override {
    if (Stored.erase(path) == 0) throw platform::Failure(platform::failure::FileNotFound);
  }
  void Rename(const std::string& from, const std::string& to) override {
    const auto file = Stored.find(from);
    if (file == Stored.end()) throw platform::Failure(platform::failure::FileNotFound);
    Stored[to] = file->second;
    Stored.erase(from);
  }
  std::unique_ptr<platform::OutputFile> Append(const std::string& path) override {
    if (Folders.count(path.substr(0, path.rfind(SeparatorText))) == 0) {
      throw platform::Failure(platform::failure::PathNotFound);
    }
    Stored[path];
    return std::make_unique<MemoryOutput>(Stored, path);
  }
  bool MakeNew(const std::string& path) override {
    if (FileExists(path)) return false;
    Append(path);
    return true;
  }
  std::unique_ptr<platform::OutputFile> Create(const std::string& path) override {
    auto file = Append(path);
    Stored[path].clear();
    return file;
  }
  std::unique_ptr<platform::OutputFile> Amend(const std::string& path) override {
    if (!FileExists(path)) throw platform::Failure(platform::failure::PathNotFound);
    return std::make_unique<MemoryAmendment>(Stored, path);
  }
  std::unique_ptr<platform::InputFile> Read(const std::string& path) override {
    if (!FileExists(path)) throw platform::Failure(platform::failure::FileNotFound);
    return std::make_unique<MemoryInput>(Stored[path]);
  }
  /// A platform with "/" and no drives, and a user named "user".
  void LeaveWindows() {
    SeparatorText = "/";
    Default = "/home/user/StoredData";
    Folders.clear();
  }

  std::string SeparatorText = "\\";
  std::string Default = "c:\\StoredData";
  /// The native writing of paths that have another one.
  std::map<std::string, std::string> NativePaths;
  /// What the disk still takes; nothing where it does not tell.
  std::optional<std::int64_t> Free;
  std::vector<std::string> Made;
  std::set<std::string> Folders{"c:\\StoredData"};
  Contents Stored;
  /// When a file was written last; the date of the tests for the others.
  std::map<std::string, platform::LocalTime> Written;
};

/// A folder dialog that answers with what the test set.
class FakeFolders : public platform::FolderDialog {
 public:
  std::optional<std::string> Browse(const std::string& title, const std::string& present) override {
    Titles.push_back(title);
    Presents.push_back(present);
    const platform::StandingBox standing(Stands);
    if (WhileOpen) WhileOpen();
    return Answer;
  }

  std::vector<std::string> Titles;
  /// The folders that the dialog was to open at.
  std::vector<std::string> Presents;
  std::optional<std::string> Answer;
  /// Runs while the dialog stands open.
  std::function<void()> WhileOpen;
  platform::StandingBox::Listener Stands;
};

/// Printers by name; the first is the system's choice.
class FakePrinters : public platform::Printers {
 public:
  std::vector<std::string> Names() const override { return List; }
  std::string Current() const override {
    if (ReadFailure) throw platform::Failure(*ReadFailure);
    if (List.empty()) throw platform::Failure(platform::failure::NoPrinter);
    return List[Chosen];
  }
  void MakeCurrent(std::int32_t index) override {
    const auto place = static_cast<std::size_t>(index);
    if (index < 0 || place >= List.size()) throw platform::Failure(platform::failure::NoPrinter);
    Chosen = place;
  }

  std::vector<std::string> List{"Office", "Control room"};
  std::size_t Chosen = 0;
  /// Raised when the current printer is asked for.
  std::optional<platform::Failure> ReadFailure;
};

/// The computer's sleep, which is kept away or not.
class FakeSleep : public platform::SleepInhibitor {
 public:
  void Inhibit(const std::string& why) override {
    Inhibited = true;
    Whys.push_back(why);
  }
  void Release() override { Inhibited = false; }

  bool Inhibited = false;
  std::vector<std::string> Whys;
};

/// Links that were opened.
class FakeLinks : public platform::ShellLinks {
 public:
  void Open(const std::string& target) override { Opened.push_back(target); }
  void OpenFile(const std::string& path, Told told) override {
    Open(path);
    if (Late) {
      Waiting.push_back(std::move(told));
    } else {
      told(Code);
    }
  }

  /// What comes of opening a file.
  std::int32_t Code = platform::open_code::Opened;
  /// The answers do not come at once; they wait here for the test.
  bool Late = false;
  std::vector<Told> Waiting;

  std::vector<std::string> Opened;
};

}  // namespace support
