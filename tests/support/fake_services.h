#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/standing_box.h"
#include "platform/system_services.h"
#include "support/journal.h"

namespace support {

/// Folders that exist by name.
class FakeFiles : public platform::FileSystem {
 public:
  std::string Separator() const override { return SeparatorText; }
  bool DirectoryExists(const std::string& path) const override { return Folders.count(path) > 0; }

  std::string SeparatorText = "\\";
  std::set<std::string> Folders{"c:\\StoredData"};
};

/// A folder dialog that answers with what the test set.
class FakeFolders : public platform::FolderDialog {
 public:
  std::optional<std::string> Browse(const std::string& title) override {
    Titles.push_back(title);
    const platform::StandingBox standing(Stands);
    if (WhileOpen) WhileOpen();
    return Answer;
  }

  std::vector<std::string> Titles;
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
    if (List.empty()) throw platform::Failure(platform::failure::NoPrinter);
    return List[Chosen];
  }
  void MakeCurrent(std::int32_t index) override { Chosen = static_cast<std::size_t>(index); }

  std::vector<std::string> List{"Office", "Control room"};
  std::size_t Chosen = 0;
};

/// Links that were opened.
class FakeLinks : public platform::ShellLinks {
 public:
  void Open(const std::string& target) override { Opened.push_back(target); }

  std::vector<std::string> Opened;
};

}  // namespace support
