#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace packetroutines {

/// Every station ID met in a session of the stream finder: a text in which each stands behind a
/// blank, for new and known ones alike, and which is only asked whether a further ID occurs in it.
///
/// A session may last a night, so the text itself is never kept. The different IDs are, each once,
/// and the order in which they came, as four bytes a frame. An ID without a blank cannot reach over
/// the blank between two others, so it is searched in the single ones; for one with a blank the
/// text is spelled out piece by piece. That finds what the whole text holds. The order goes back
/// `LongestOrder` frames, six days at two frames a second: what is forgotten then is only where two
/// IDs stood side by side for the last time before.
class SeenStreams {
 public:
  static constexpr std::size_t LongestOrder = std::size_t{1} << 20U;

  void Clear();
  /// The ID itself was met, and not only as a part of the text.
  bool Met(const std::string& id) const { return numbers_.contains(id); }
  /// The text holds the ID; it holds an empty one always.
  bool Holds(const std::string& id) const;
  void Append(const std::string& id);
  /// How many different IDs there are.
  std::size_t Count() const { return ids_.size(); }

 private:
  bool StandsInOne(const std::string& id) const;
  bool StandsAcross(const std::string& id) const;

  std::vector<std::string> ids_;
  std::unordered_map<std::string, std::uint32_t> numbers_;
  /// The numbers of the IDs as they came. A ring, once it is full: `oldest_` is its beginning.
  std::vector<std::uint32_t> order_;
  std::size_t oldest_ = 0;
};

}  // namespace packetroutines
