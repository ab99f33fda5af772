#pragma once

#include <string>

namespace platform {

/// The per-user store of named texts, by application, section and key.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  /// The stored text, or `fallback` where the key is absent.
  virtual std::string Get(const std::string& application, const std::string& section,
                          const std::string& key, const std::string& fallback) const = 0;
  /// Writes the text and creates the key where it is missing.
  virtual void Set(const std::string& application, const std::string& section,
                   const std::string& key, const std::string& text) = 0;
  /// The place where the settings of an application are kept, as a user finds it.
  virtual std::string Place(const std::string& application) const = 0;
};

}  // namespace platform
