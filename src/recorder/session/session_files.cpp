#include "recorder/session/session_files.h"

#include <string_view>

#include "base/failure.h"
#include "base/local_time.h"
#include "recorder/writing/record_names.h"

namespace packetroutines {

namespace line = forms::record_line;

void SessionFiles::Begin() {
  writing_.Report.Begin();
  writing_.Open.CloseQuietly(TextFile);
  for (SampleFormat* format : writing_.Formats) format->FinishLeftOpen();
}

std::string SessionFiles::PathOf(const std::string& name) const {
  return RecordPath(writing_.Context.Services.Files, writing_.Context.Settings, name);
}

std::string SessionFiles::NameOfNow() const {
  const SampleFormat* const format = writing_.Formats.Chosen();
  if (format == nullptr) return {};
  return RecordName(writing_.Context.Services.Calendar.Now(), format->Facts.Extension);
}

bool SessionFiles::IsTaken(const std::string& name) const {
  const platform::FileSystem& files = writing_.Context.Services.Files;
  return files.FileExists(PathOf(name)) || files.FileExists(PathOf(FirstPrefix + name)) ||
         files.FileExists(PathOf(SecondPrefix + name));
}

void SessionFiles::Name(const std::string& name) {
  if (!name.empty()) record_.RecordFileName = name;
  recorder_.Label10[line::FirstPath].Caption = PathOf(FirstPrefix + record_.RecordFileName);
  recorder_.Label10[line::SecondPath].Caption = PathOf(SecondPrefix + record_.RecordFileName);
}

bool SessionFiles::Claim() {
  const SampleFormat* const format = writing_.Formats.Chosen();
  if (format == nullptr) return false;
  platform::FileSystem& files = writing_.Context.Services.Files;
  const std::string first = record_.RecordFileName;
  std::string name = first;
  try {
    while (IsTaken(name) || !files.MakeNew(PathOf(EventsName(name)))) {
      const std::string_view extension = format->Facts.Extension;
      name = RecordName(platform::NextSecond(StartTimeOf(name, extension)), extension);
    }
  } catch (const platform::Failure&) {
    // What keeps a file from being made is told with the ring.
    return false;
  }
  if (name == first) return false;
  Name(name);
  return true;
}

void SessionFiles::LookForFiles() {
  // A ring that failed may have left its file open.
  writing_.Open.CloseQuietly(TextFile);
  for (const std::size_t stream : {0U, 1U}) writing_.Report.LookForFile(stream);
}

void SessionFiles::Finish() {
  LookForFiles();
  if (SampleFormat* const format = writing_.Formats.Chosen()) format->End();
}

void SessionFiles::FinishPart() {
  LookForFiles();
  if (SampleFormat* const format = writing_.Formats.Chosen()) format->EndPart();
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
  const std::string path = PathOf(record_.RecordFileName);
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
