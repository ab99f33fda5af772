#include "recorder/session/session_files.h"

#include <string>

namespace packetroutines {

void SessionFiles::Begin() {
  writing_.report.Begin();
  writing_.open.CloseQuietly(TextFile);
  for (SampleFormat* format : writing_.formats) format->FinishLeftOpen();
}

void SessionFiles::Finish() {
  // A ring that failed may have left its file open.
  writing_.open.CloseQuietly(TextFile);
  for (const std::size_t stream : {0U, 1U}) writing_.report.LookForFile(stream);
  if (SampleFormat* const format = writing_.formats.Chosen()) format->End();
}

bool SessionFiles::FindToRead() {
  const Sequel sequel = SequelOf(writing_.formats.Chosen());
  if (sequel == Sequel::Nothing) return true;
  const WritingContext& context = writing_.context;
  const platform::FileSystem& files = context.Services.Files;
  // It is read under the name of one stream, whatever prefix the samples' files bear.
  const std::string path = RecordPath(files, context.Settings, context.State.RecordFileName);
  if (files.FileExists(path)) return true;
  const bool viewed = sequel == Sequel::Viewer;
  const bool ofOneStream = path == RecordPath(context, 0);
  if (ofOneStream && writing_.report.Gone(0)) {
    writing_.report.Add(viewed ? "The worksheet is not opened for viewing"
                               : "Log and quick view are left out");
    return false;
  }
  if (viewed) {
    if (ofOneStream) writing_.report.Add("No ring was stored, so there is no worksheet");
    return true;
  }
  writing_.open.OpenToAppend(TextFile, path);
  writing_.open.Close(TextFile);
  return true;
}

}  // namespace packetroutines
