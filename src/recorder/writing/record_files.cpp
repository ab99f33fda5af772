#include "recorder/writing/record_files.h"

#include <algorithm>

#include "base/failure.h"

namespace packetroutines {

namespace {

/// "dd.mm.yyyy hh-MM-ss"
constexpr std::size_t DateLength = 19;

}  // namespace

const RecordFormat* FindFormat(std::string_view name) {
  const auto format = std::find_if(RecordFormats.begin(), RecordFormats.end(),
                                   [&](const RecordFormat& each) { return each.Name == name; });
  return format == RecordFormats.end() ? nullptr : &*format;
}

std::string RecordPlaceholder(const RecordFormat& format) {
  return "SV record dd.mm.yyyy hh-MM-ss" + std::string(format.Extension) + " (after 'RUN')";
}

std::string RecordPrefix(std::size_t stream, const config::RunSettings& present) {
  if (stream == 1) return SecondPrefix;
  return present.StreamCount == 2 ? FirstPrefix : "";
}

std::string RecordPath(const platform::FileSystem& files, const config::Settings& settings,
                       const std::string& name) {
  return files.Native(settings.StoragePath) + files.Separator() + name;
}

std::string RecordDate(const std::string& recordFileName, std::string_view extension) {
  const std::size_t end = recordFileName.find(extension);
  if (end == std::string::npos || end < DateLength) {
    throw platform::Failure(platform::failure::InvalidProcedureCall);
  }
  return recordFileName.substr(end - DateLength, DateLength);
}

void DotDecimal(std::string& text, std::size_t from) {
  const std::size_t comma = text.find(',', from);
  if (comma != std::string::npos) text[comma] = '.';
}

}  // namespace packetroutines
