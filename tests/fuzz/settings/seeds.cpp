// Writes stores as the program fills them, and each key with what is at the edge of its type.

#include <iterator>
#include <string>

#include "fuzz/seed_folder.h"
#include "support/stored_defaults.h"

int main(int count, char** arguments) {
  return fuzz::WriteSeeds(count, arguments, [](fuzz::SeedFolder& folder) {
    const auto& rows = support::StoredDefaults();
    std::string all(1, '\0');
    for (std::size_t key = 0; key < rows.size(); ++key) {
      all += static_cast<char>(key) + rows[key].Default + '\n';
    }
    folder.Put(all);
    const char* const edges[] = {"32767", "-1", "0", "3,4028235E+38", "True", "MU01"};
    for (std::size_t key = 0; key < rows.size(); ++key) {
      folder.Put(std::string{'\1', static_cast<char>(key)} + edges[key % std::size(edges)]);
    }
  });
}
