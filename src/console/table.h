#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace console {

/// Rows of texts in columns, each as wide as its widest text: words at the left, numbers at the
/// right.
class Table {
 public:
  enum class Side { Left, Right };
  struct Column {
    std::string Heading;
    Side Stands = Side::Left;
  };

  explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}

  /// A text for each column.
  void Add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }
  void Write(std::ostream& out) const;

 private:
  std::size_t WidthOf(std::size_t column) const;
  void WriteRow(std::ostream& out, const std::vector<std::string>& row,
                const std::vector<std::size_t>& widths) const;

  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace console
