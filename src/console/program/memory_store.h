#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/services/settings_store.h"

namespace console {

/// The settings of one run of a command, which leaves those of the window as they are.
class MemoryStore : public platform::SettingsStore {
 public:
  using Texts = std::map<std::string, std::string>;

  /// What the command sets; whatever else there is has its usual value.
  explicit MemoryStore(Texts texts) : texts_(std::move(texts)) {}

  std::string Get(const std::string&, const std::string&, const std::string& key,
                  const std::string& fallback) const override {
    const auto text = texts_.find(key);
    return text == texts_.end() ? fallback : text->second;
  }
  void Set(const std::string&, const std::string&, const std::string& key,
           const std::string& text) override {
    texts_[key] = text;
  }
  std::string Place(const std::string&) const override { return "the options of the command"; }

 private:
  Texts texts_;
};

}  // namespace console
