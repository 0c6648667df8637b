// SPDX-License-Identifier: MIT
// What the console's commands work on: the main window and the services that record.
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

/// Passed to every command by reference. Out takes UTF-8.
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
  /// Whether the time-out of a page is running. A scan without one waits for its user.
  std::function<bool()> PageInProgress;
  /// How many sites are read ahead of the scan; null in a scan of one site at a time.
  std::function<std::size_t()> SitesAhead{};

  /// A text of the program in UTF-8, escaped.
  [[nodiscard]] std::string Outside(std::string_view text) const { return Codec.ToUtf8(Escaped(text)); }
  /// One line of output and its end, with tabs between the fields, in UTF-8.
  [[nodiscard]] std::string Line(const std::vector<std::string>& fields) const;
  /// Prints one line, with tabs between the fields. Lines are flushed at once: a reader may wait for
  /// them.
  void PrintLine(const std::vector<std::string>& fields);
  void PrintLine(std::string_view text);
  /// Prints one line on standard error, after the program's name. UTF-8.
  void Complain(std::string_view utf8);
};

/// A value for the settings store: the text in the code page, except for LastProject, which is a path and
/// keeps its bytes.
[[nodiscard]] std::string SettingValue(const TextCodec& codec, std::string_view key, std::string_view utf8);

/// The fields of one row of a list.
[[nodiscard]] std::vector<std::string> RowFields(const ListView& list, std::size_t row);

}  // namespace requite
