#pragma once

#include <QTimer>
#include <cstddef>
#include <functional>
#include <vector>

namespace desktop {

/// Brings changed texts to their widgets, each at most once a frame of the screen. A value that is
/// written with every frame thus costs its widget some sixty updates.
class RepaintQueue {
 public:
  RepaintQueue();

  /// Registers how one text gets to its widget; the result is its number for `Mark`.
  std::size_t Add(std::function<void()> update);
  /// The text of this number changed.
  void Mark(std::size_t entry);
  /// Brings all marked texts to their widgets now.
  void Flush();

 private:
  struct Entry {
    std::function<void()> Update;
    bool Marked = false;
  };

  std::vector<Entry> entries_;
  std::vector<std::size_t> marked_;
  QTimer timer_;
};

}  // namespace desktop
