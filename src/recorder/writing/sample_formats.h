#pragma once

#include <array>
#include <cstddef>

#include "config/settings.h"
#include "forms/recorder_controls.h"
#include "recorder/writing/sample_format.h"

namespace packetroutines {

/// The formats of recordings by the index of their choice, `Option2`, and which of them the
/// settings name.
class SampleFormats {
 public:
  using Table = std::array<SampleFormat*, forms::record_format::Count>;

  template <typename... Formats>
  explicit SampleFormats(const config::Settings& settings, Formats&... byChoice)
      : settings_(settings), byChoice_{&byChoice...} {
    static_assert(sizeof...(Formats) == forms::record_format::Count, "each choice has a format");
  }

  /// The format that is set; null where the stored name is none of theirs.
  SampleFormat* Chosen() const;
  SampleFormat& operator[](std::size_t choice) const { return *byChoice_[choice]; }
  Table::const_iterator begin() const { return byChoice_.begin(); }
  Table::const_iterator end() const { return byChoice_.end(); }

 private:
  const config::Settings& settings_;
  Table byChoice_;
};

/// What follows a recording in this format; nothing where there is none.
inline Sequel SequelOf(const SampleFormat* format) {
  return format == nullptr ? Sequel::Nothing : format->Facts.Sequel;
}

}  // namespace packetroutines
