#include "capture/content_filter.h"

namespace packetroutines {

void ContentFilter::Take(const std::string& content) {
  needle_ = code_.FromUtf8(content);
  place_ = 0;
  impossible_ = code_.ToUtf8(needle_) != content;
  if (impossible_) needle_.clear();
}

std::size_t ContentFilter::FindFrom(std::string_view frameText, std::size_t place) {
  const std::size_t at = frameText.find(needle_, place);
  if (at != std::string_view::npos) place_ = at;
  return at;
}

}  // namespace packetroutines
