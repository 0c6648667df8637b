// SPDX-License-Identifier: MIT
// Reads the settings of the visitor where they are used.
#include "model/visitor.h"

#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::chrono::seconds kDefaultTimeout{60};

}  // namespace

bool AsksSecurely(const Settings& settings) { return settings.GetSetting(setting::chkSecure) == "1"; }

std::string VisitorName(const Settings& settings) {
  return std::string(Trim(WithoutControlCharacters(settings.GetSetting(setting::txtUserAgent))));
}

Visitor VisitorOf(const Settings& settings) { return {VisitorName(settings), AsksSecurely(settings)}; }

SecureRules SecureRulesOf(SettingsStore& store) {
  const auto timeout = [&store] {
    std::chrono::seconds value = kDefaultTimeout;
    PassOver([&] { value = std::chrono::seconds(Settings(store).Number(setting::txtTimeout)); });
    return value;
  };
  return {[&store] { return AsksSecurely(Settings(store)); }, timeout};
}

std::string WithoutControlCharacters(std::string text) {
  std::erase_if(text, [](char each) { return (each >= '\0' && each < ' ') || each == '\x7F'; });
  return text;
}

}  // namespace requite
