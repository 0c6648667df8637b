// SPDX-License-Identifier: MIT
// Settings that hold for one run, over the stored ones.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/services.h"

namespace requite {

/// Reads as if the given values were stored. They never reach the store, so neither the next run nor another
/// running program sees them. A key that is written is the store's again.
class RunSettings : public SettingsStore {
 public:
  /// The store must outlive this object.
  explicit RunSettings(SettingsStore& store) : store_(store) {}

  void Hold(std::string key, std::string value) { held_[std::move(key)] = std::move(value); }

  [[nodiscard]] std::optional<std::string> Read(std::string_view key) override {
    const auto held = held_.find(key);
    return held != held_.end() ? held->second : store_.Read(key);
  }
  void Write(std::string_view key, std::string_view value) override {
    LetGo(key);
    store_.Write(key, value);
  }
  void WriteSoon(std::string_view key, std::string_view value) override {
    LetGo(key);
    store_.WriteSoon(key, value);
  }

 private:
  void LetGo(std::string_view key) {
    if (const auto held = held_.find(key); held != held_.end()) held_.erase(held);
  }

  SettingsStore& store_;
  std::map<std::string, std::string, std::less<>> held_;
};

}  // namespace requite
