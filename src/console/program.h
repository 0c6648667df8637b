// SPDX-License-Identifier: MIT
// The program as the console's commands see it: the main window and the services that remember.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "console/console_loop.h"
#include "console/console_services.h"
#include "console/text_codec.h"
#include "shell/main_window/form1.h"

namespace requite {

/// Handed by reference to every command. Out takes UTF-8.
struct ConsoleProgram {
  requite::Form1& Form1;
  ConsoleLoop& Loop;
  SettingsStore& Store;
  ConsoleDialogs& Dialogs;
  SoundRecorder& Sounds;
  MemoryClipboard& Clipboard;
  TextCodec Codec;
  std::ostream& Out;
  std::ostream& Err;
  bool OutIsTerminal = false;
  /// Whether a page's time-out runs; a scan whose page has none waits for its user.
  std::function<bool()> PageInProgress;

  /// A text of the program, escaped and in UTF-8.
  [[nodiscard]] std::string Outside(std::string_view text) const { return Codec.ToUtf8(Escaped(text)); }
  /// Prints one line; fields are parted by a tab. Lines leave at once: who reads them may be waiting.
  void PrintLine(const std::vector<std::string>& fields);
  void PrintLine(std::string_view text);
  /// One line on standard error, after the program's name. UTF-8.
  void Complain(std::string_view utf8);
};

/// A value for the settings store: the text in the program's code page, but for LastProject, which is a
/// path and so keeps its bytes.
[[nodiscard]] std::string SettingValue(const TextCodec& codec, std::string_view key, std::string_view utf8);

/// The fields of one row of a list.
[[nodiscard]] std::vector<std::string> RowFields(const ListView& list, std::size_t row);

}  // namespace requite
