#include "recorder/writing/sample_formats.h"

#include <algorithm>

namespace packetroutines {

SampleFormat* SampleFormats::Chosen() const {
  const auto* const chosen = std::find_if(
      byChoice_.begin(), byChoice_.end(),
      [this](const SampleFormat* format) { return format->Facts.Name == settings_.FileFormat; });
  return chosen == byChoice_.end() ? nullptr : *chosen;
}

}  // namespace packetroutines
