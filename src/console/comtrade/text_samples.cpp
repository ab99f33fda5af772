#include "console/comtrade/text_samples.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "recorder/reading/ramp_field.h"

namespace console {

namespace {

/// A value that is larger is no measured one, and some forms cannot hold it.
constexpr double MostValue = std::numeric_limits<float>::max();

/// Takes a number and the sign behind it from the front of a line, of which it is the last field or
/// not; False where there is none.
template <typename Number>
bool Take(std::string_view& line, bool last, Number& number) {
  const char* const end = line.data() + line.size();
  const auto [rest, error] = std::from_chars(line.data(), end, number);
  const bool ended = last ? rest == end : rest != end && *rest == packetroutines::FieldSign;
  if (error != std::errc() || !ended) return false;
  line.remove_prefix(static_cast<std::size_t>(rest - line.data()) + (last ? 0 : 1));
  return true;
}

}  // namespace

TextSamples::TextSamples(platform::FileSystem& files, const std::string& path)
    : file_(files.Read(path)),
      pass_(nobodySees_, 0, 0, files.FileSize(path)),
      reader_(*file_, pass_) {}

bool TextSamples::Next() {
  if (reader_.AtEnd()) return false;
  const std::string_view line = reader_.Next();
  cut_ = !reader_.WasWhole();
  if (cut_) return false;
  ++lines_;
  Parse(line);
  return true;
}

void TextSamples::Parse(std::string_view line) {
  std::int64_t number = 0;
  bool whole = Take(line, false, number) && Take(line, false, counter_) && counter_ >= 0;
  for (std::size_t k = 0; whole && k < Channels; ++k) {
    whole = Take(line, k + 1 == Channels, values_[k]) && std::abs(values_[k]) <= MostValue;
  }
  if (!whole) Refuse("it is no sample of a text recording");
}

void TextSamples::Refuse(const std::string& why) const {
  throw platform::Failure(platform::failure::TypeMismatch,
                          "line " + std::to_string(lines_) + ": " + why);
}

}  // namespace console
