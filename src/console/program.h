// SPDX-License-Identifier: MIT
// The program as the console's commands see it: the main window and the services that remember.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "console/console_loop.h"
#include "console/console_services.h"
#include "console/text_codec.h"
#include "shell/form1.h"

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

  /// A text of the program, escaped and in UTF-8.
  [[nodiscard]] std::string Outside(std::string_view text) const { return Codec.ToUtf8(Escaped(text)); }
  /// Prints one line; fields are parted by a tab. Lines leave at once: who reads them may be waiting.
  void PrintLine(const std::vector<std::string>& fields);
  void PrintLine(std::string_view text);
};

/// The fields of one row of a list.
[[nodiscard]] std::vector<std::string> RowFields(const ListView& list, std::size_t row);

}  // namespace requite
