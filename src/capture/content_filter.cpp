#include "capture/content_filter.h"

namespace packetroutines {

void ContentFilter::Take(const std::string& content) {
  content_ = content;
  needle_ = code_.FromUtf8(content);
  place_ = 0;
  if (code_.ToUtf8(needle_) == content) return;
  needle_.clear();
  place_ = Nowhere;
}

bool ContentFilter::Find(std::string_view frameText) {
  if (place_ == Nowhere) return false;
  const std::size_t at = frameText.find(needle_);
  if (at == std::string_view::npos) return false;
  place_ = at;
  return true;
}

}  // namespace packetroutines
