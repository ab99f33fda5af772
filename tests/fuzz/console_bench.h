#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/system_bus_taps.h"
#include "console/console_scene.h"
#include "fuzz/demand.h"

namespace fuzz {

/// The program without a window on this computer's files, in a folder of its own.
class ConsoleBench : public console::ConsoleScene {
 public:
  std::string File(const std::string& name) const { return Folder.File(name); }
  /// Runs a command, which must end in an orderly way.
  console::ExitCode Order(const std::vector<std::string>& words) {
    std::vector<const char*> arguments{"vornik-cli"};
    for (const std::string& word : words) arguments.push_back(word.c_str());
    Results.str({});
    Notes.str({});
    const console::ExitCode code =
        console::Run(static_cast<int>(arguments.size()), arguments.data(), computer_);
    // An exception of a library is told as it is: nobody has thought of it.
    const std::string notes = Notes.str();
    for (const std::string_view sign : {"::", "json.exception", "std", "stoi", "bad_"}) {
      Demand(notes.find(sign) == std::string::npos, "a user understands what is told: " + notes);
    }
    return code;
  }
  std::string NotesText() const { return Notes.str(); }
  nlohmann::json ToldJson() const { return Json(); }
  /// Everything in the folder goes.
  void Clear() const {
    for (const std::string& name : NamesIn(Folder.Path())) std::filesystem::remove(File(name));
  }

 private:
  void TestBody() override {}

  console::Machine computer_{.Results = Results,
                             .Notes = Notes,
                             .Clock = Clock,
                             .Calendar = Calendar,
                             .Code = Code,
                             .Numbers = Numbers,
                             .Files = Files,
                             .Taps = Captures,
                             .Captures = Captures,
                             .Sleep = Machine.Sleep,
                             .EndAsked = Machine.EndAsked};
};

}  // namespace fuzz
