#include "recorder/reading/line_reader.h"

namespace packetroutines {

bool LineReader::ReadMore() {
  const std::size_t kept = end_ - at_;
  std::memmove(piece_.data(), piece_.data() + at_, kept);
  at_ = 0;
  end_ = kept;
  // A line longer than a piece needs a larger one.
  if (end_ == piece_.size()) piece_.resize(piece_.size() * 2);
  const std::size_t count = file_.Read({piece_.data() + end_, piece_.size() - end_});
  end_ += count;
  pass_.Advance(static_cast<std::int64_t>(count));
  return count > 0;
}

}  // namespace packetroutines
