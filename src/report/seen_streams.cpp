#include "report/seen_streams.h"

namespace packetroutines {

namespace {

constexpr char Blank = ' ';
/// The text is spelled out in pieces of about this many characters.
constexpr std::size_t PieceLength = 1U << 16U;

}  // namespace

void SeenStreams::Clear() {
  ids_.clear();
  numbers_.clear();
  order_.clear();
  oldest_ = 0;
}

bool SeenStreams::Holds(const std::string& id) const {
  if (id.empty() || numbers_.contains(id)) return true;
  return id.find(Blank) == std::string::npos ? StandsInOne(id) : StandsAcross(id);
}

void SeenStreams::Append(const std::string& id) {
  const auto [known, isNew] = numbers_.try_emplace(id, static_cast<std::uint32_t>(ids_.size()));
  if (isNew) ids_.push_back(id);
  if (order_.size() < LongestOrder) {
    order_.push_back(known->second);
    return;
  }
  order_[oldest_] = known->second;
  oldest_ = (oldest_ + 1) % LongestOrder;
}

bool SeenStreams::StandsInOne(const std::string& id) const {
  for (const std::string& seen : ids_) {
    if (seen.find(id) != std::string::npos) return true;
  }
  return false;
}

bool SeenStreams::StandsAcross(const std::string& id) const {
  // An ID that came before the order begins stands behind its blank all the same.
  for (const std::string& seen : ids_) {
    if ((Blank + seen).find(id) != std::string::npos) return true;
  }
  std::string piece;
  for (std::size_t i = 0; i < order_.size(); ++i) {
    piece += Blank;
    piece += ids_[order_[(oldest_ + i) % order_.size()]];
    if (piece.size() < PieceLength && i + 1 < order_.size()) continue;
    if (piece.find(id) != std::string::npos) return true;
    // What begins in this piece may end in the next one.
    piece.erase(0, piece.size() < id.size() ? 0 : piece.size() - id.size() + 1);
  }
  return false;
}

}  // namespace packetroutines
