#include "recorder/reading/record_analysis.h"

#include "recorder/writing/text_format.h"

namespace packetroutines {

namespace {

const char* FolderTrouble(std::int32_t code) {
  using namespace platform::open_code;
  switch (code) {
    case FileNotFound:
    case PathNotFound:
      return "The data folder is not there. Check the data path under 'Setup'.";
    case AccessDenied:
      return "The data folder must not be read. Check its rights, or the data path under 'Setup'.";
    default:
      return "The data folder was not opened: this computer has no file manager for it.";
  }
}

}  // namespace

RecordAnalysis::RecordAnalysis(const ReadingContext& context, const PacketBytes& frame,
                               forms::RecorderControls& recorder)
    : context_(context),
      recorder_(recorder),
      log_(context, frame, recorder.ProgressBar1),
      view_(context, recorder) {
  recorder.Command9.Click = [this] { context_.Services.Links.Open(context_.LogPath()); };
  recorder.OpenFolder.Click = [this] { OpenFolder(); };
  for (platform::Label& line : recorder.Label10) {
    line.DblClick = [this] { OpenTextFile(); };
  }
}

void RecordAnalysis::OpenTextFile() {
  if (!context_.State.RecordFileName.ends_with(TextFacts.Extension)) return;
  context_.Services.Links.Open(context_.Path());
}

void RecordAnalysis::OpenFolder() {
  // What was told of the attempt before holds no longer.
  if (recorder_.NotStored.Caption == folderTrouble_) recorder_.NotStored.Say({});
  folderTrouble_.clear();
  const std::string& folder = context_.Settings.StoragePath;
  context_.Services.Links.OpenFile(context_.Services.Files.Native(folder),
                                   [this](std::int32_t code) { TellOfFolder(code); });
}

void RecordAnalysis::TellOfFolder(std::int32_t code) {
  // What is told of a recording matters more.
  if (code >= platform::open_code::Opened || !recorder_.NotStored.Caption.Get().empty()) return;
  folderTrouble_ = FolderTrouble(code);
  recorder_.NotStored.Say(folderTrouble_);
}

}  // namespace packetroutines
