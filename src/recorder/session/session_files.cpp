#include "recorder/session/session_files.h"

#include <string>

namespace packetroutines {

void SessionFiles::Begin() {
  writing_.Report.Begin();
  writing_.Open.CloseQuietly(TextFile);
  for (SampleFormat* format : writing_.Formats) format->FinishLeftOpen();
}

void SessionFiles::Finish() {
  // A ring that failed may have left its file open.
  writing_.Open.CloseQuietly(TextFile);
  for (const std::size_t stream : {0U, 1U}) writing_.Report.LookForFile(stream);
  if (SampleFormat* const format = writing_.Formats.Chosen()) format->End();
}

void SessionFiles::FinishForGood() {
  writing_.Open.CloseQuietly(TextFile);
  if (SampleFormat* const format = writing_.Formats.Chosen()) format->EndForGood();
}

bool SessionFiles::FindToRead() {
  const Sequel sequel = SequelOf(writing_.Formats.Chosen());
  if (sequel == Sequel::Nothing) return true;
  const WritingContext& context = writing_.Context;
  const platform::FileSystem& files = context.Services.Files;
  // It is read under the name of one stream, whatever prefix the samples' files bear.
  const std::string path = RecordPath(files, context.Settings, context.State.RecordFileName);
  if (files.FileExists(path)) return true;
  const bool viewed = sequel == Sequel::Viewer;
  const bool ofOneStream = path == RecordPath(context, 0);
  if (ofOneStream && writing_.Report.Gone(0)) {
    writing_.Report.Add(viewed ? "The worksheet is not opened for viewing"
                               : "Log and quick view are left out");
    return false;
  }
  if (viewed) {
    if (ofOneStream) writing_.Report.Add("No ring was stored, so there is no worksheet");
    return true;
  }
  writing_.Open.OpenToAppend(TextFile, path);
  writing_.Open.Close(TextFile);
  return true;
}

}  // namespace packetroutines
