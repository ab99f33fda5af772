#pragma once

#include <string>
#include <vector>

namespace support {

enum class StoredType { Text, Integer, Float, Boolean };

/// One stored setting: its key, its type, and the text that stands for an absent key.
struct StoredRow {
  std::string Key;
  StoredType Kind;
  std::string Default;
};

/// Every stored setting that is read, in the order of the store.
const std::vector<StoredRow>& StoredDefaults();

}  // namespace support
