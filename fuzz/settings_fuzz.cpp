// SPDX-License-Identifier: MIT
// Reads any bytes as a settings journal. Records must survive being written and read, and
// whatever a file holds, the store must open it and keep the next value.
#include <cstdlib>
#include <string>
#include <string_view>

#include "support/fakes.h"
#include "system/settings_file.h"
#include "system/settings_record.h"

namespace {

using namespace requite;

void Require(bool holds) {
  if (!holds) std::abort();
}

void RequireSurvives(std::string_view key, std::string_view value) {
  std::string journal;
  AppendSettingsRecord(journal, key, value);
  Require(journal.find('\n') == journal.size() - 1);
  const auto read = ReadSettingsRecord(std::string_view(journal).substr(0, journal.size() - 1));
  Require(read && read->Key == key && read->Value == value);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (const auto record = ReadSettingsRecord(text)) RequireSurvives(record->Key, record->Value);
  RequireSurvives(text.substr(0, size / 2), text.substr(size / 2));

  // The folder is made only once, because the fuzzer runs it very often.
  static const test::TemporaryFolder folder;
  const std::string path = folder.File("settings");
  WriteFile(path, text);
  {
    SettingsFile store(path);
    store.Write("Key", text);
    store.Write("key", "last");
    Require(store.Read("KEY") == "last");
  }
  SettingsFile again(path);
  Require(again.Read("key") == "last");
  const std::string damaged = path + ".damaged-1";
  if (FileExists(damaged)) DeleteFile(damaged);
  return 0;
}
