// SPDX-License-Identifier: MIT
// All settings with their defaults, and how the program reads and writes them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/services.h"

namespace requite {

/// A key of the settings store and its value when it is missing.
struct SettingKey {
  std::string_view Name;
  std::string_view Default;
};

/// The keys are the names of their controls. All values are texts; flags are "0" and "1".
namespace setting {
inline constexpr SettingKey LastProject{"LastProject", ""};
inline constexpr SettingKey txtHTML1{
    "txtHTML1",
    "Paste all the HTML that you want to come before the links on your page here.  This will be the "
    "first part of your generated webpage."};
inline constexpr SettingKey txtHTML2{
    "txtHTML2",
    "Your link HTML will be generated here.  This will be the second part of your generated webpage."};
inline constexpr SettingKey txtHTML3{
    "txtHTML3",
    "Paste all the HTML that you want to come after the links on your page here.  This will be the "
    "third part of your generated webpage."};
inline constexpr SettingKey chkNewWin{"chkNewWin", "1"};
inline constexpr SettingKey chkBullet{"chkBullet", "0"};
inline constexpr SettingKey optAll{"optAll", "0"};
inline constexpr SettingKey optScript{"optScript", "0"};
inline constexpr SettingKey cmbLastSearch{"cmbLastSearch", "0"};
inline constexpr SettingKey Combo1{"Combo1", "-1"};
inline constexpr SettingKey Combo2{"Combo2", "-1"};
inline constexpr SettingKey ScanType{"ScanType", "0"};
inline constexpr SettingKey SkipType{"SkipType", "0"};
inline constexpr SettingKey lHistWebScanned{"lHistWebScanned", "0"};
inline constexpr SettingKey lHistEmailFound{"lHistEmailFound",
                                            "0"};  // counts links: the name is that of stored settings
inline constexpr SettingKey showHelp{"showHelp", "1"};
inline constexpr SettingKey SimpleView{"SimpleView", "False"};
inline constexpr SettingKey txtTimeout{"txtTimeout", "60"};
inline constexpr SettingKey txtAutoSave{"txtAutoSave", "5"};
inline constexpr SettingKey cmbAdvance{"cmbAdvance", "4"};
inline constexpr SettingKey chkAuto{"chkAuto", "1"};
inline constexpr SettingKey chkAuto2{"chkAuto2", "1"};
inline constexpr SettingKey chkRedirect{"chkRedirect", "1"};
inline constexpr SettingKey chkUpdate{"chkUpdate", "1"};
inline constexpr SettingKey chkLog{"chkLog", "0"};
inline constexpr SettingKey chkAudioEmail{"chkAudioEmail", "1"};
inline constexpr SettingKey chkAudioNext{"chkAudioNext", "1"};
inline constexpr SettingKey chkAudioFinished{"chkAudioFinished", "1"};
inline constexpr SettingKey chkFileTypes{"chkFileTypes", "1"};
inline constexpr SettingKey chkAutoSave{"chkAutoSave", "0"};
inline constexpr SettingKey chkSecure{"chkSecure", "0"};
inline constexpr SettingKey txtUserAgent{"txtUserAgent", ""};
inline constexpr SettingKey SitesAtATime{"SitesAtATime", "1"};            // 1 to 256
inline constexpr SettingKey PauseBetweenPages{"PauseBetweenPages", "0"};  // ms, of one host
inline constexpr SettingKey chkHistory{"chkHistory", "0"};
inline constexpr SettingKey getUrlOption{"getUrlOption", "0"};
inline constexpr SettingKey getURL1{"getURL1", "http://"};
inline constexpr SettingKey getURL2{"getURL2", "http://"};
inline constexpr SettingKey getURL3{"getURL3", "http://"};
inline constexpr SettingKey getURLCombo{"getURLCombo", "-1"};
}  // namespace setting

inline constexpr std::int16_t kMostSitesAtATime = 256;

/// Reads and writes settings where they are used; keeps nothing between calls.
class Settings {
 public:
  explicit Settings(SettingsStore& store) : store_(store) {}

  [[nodiscard]] std::string GetSetting(const SettingKey& key) const {
    return store_.Read(key.Name).value_or(std::string(key.Default));
  }
  /// The value as a number. Throws TypeMismatch or Overflow when the stored text is not one.
  [[nodiscard]] std::int16_t Number(const SettingKey& key) const;
  [[nodiscard]] std::int32_t LongNumber(const SettingKey& key) const;
  /// Whether the value, as a number, is exactly 1. Throws like Number.
  [[nodiscard]] bool IsOne(const SettingKey& key) const { return Number(key) == 1; }

  void SaveSetting(const SettingKey& key, std::string_view value) { store_.Write(key.Name, value); }
  void SaveSetting(const SettingKey& key, std::int64_t value) {
    store_.Write(key.Name, std::to_string(value));
  }
  /// For a counter that is raised all the time: a kill may lose the last few milliseconds of it.
  void SaveSettingSoon(const SettingKey& key, std::int64_t value) {
    store_.WriteSoon(key.Name, std::to_string(value));
  }

 private:
  SettingsStore& store_;
};

}  // namespace requite
