// SPDX-License-Identifier: MIT
// Settings read as numbers.
#include "model/settings.h"

#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::size_t kMostShown = 100;

/// Only the user can correct a stored value, so the message says which one it is.
template <class Read>
auto ReadNumber(const SettingKey& key, const std::string& value, Read&& read) {
  try {
    return read(value);
  } catch (RuntimeFailure& failure) {
    std::string shown(Left(value, kMostShown));
    for (char& each : shown) each = each >= '\0' && each < ' ' ? '?' : each;
    failure.Remedy = "The setting " + std::string(key.Name) + " holds \"" + shown +
                     "\", which is not a valid number for it.";
    throw;
  }
}

}  // namespace

std::int16_t Settings::Number(const SettingKey& key) const {
  return ReadNumber(key, GetSetting(key), ReadInt16);
}

std::int32_t Settings::LongNumber(const SettingKey& key) const {
  return ReadNumber(key, GetSetting(key), ReadInt32);
}

}  // namespace requite
