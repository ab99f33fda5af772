#pragma once

#include <cstdint>
#include <string>

#include "platform/services/services.h"
#include "recorder/writing/record_context.h"
#include "recorder/writing/sample_writer.h"

namespace packetroutines {

/// The files of a recording at its RUN and at its end, in whatever format: what an earlier one has
/// left open, what a file needs to be complete, and whether there is a file to read back.
class SessionFiles {
 public:
  SessionFiles(const RecordContext& context, const RecordWriters& writers,
               const platform::Services& services)
      : context_(context), writers_(writers), services_(services) {}

  /// RUN: frees what a failure has left open, and finishes what a change of the tab has.
  void Begin();
  /// STOP: gives the files their end.
  void Finish();
  void CloseSheet(std::size_t stream);
  /// Whether what follows the recording finds the file that it reads; the view tells where not. A
  /// text file that is missing is made, as the reader would; a failure of that leaves through here.
  bool FindToRead();

 private:
  void TellOfOpenEnd(std::int16_t result, const std::string& sheet);
  void FinishComtrade();
  std::string WhatOfTheSamples() const;
  bool HasFormat(std::string_view format) const { return context_.Settings.FileFormat == format; }

  RecordContext context_;
  RecordWriters writers_;
  platform::Services services_;
};

}  // namespace packetroutines
