// SPDX-License-Identifier: MIT
// The commands that read the history: they need no window and start no scan.
#pragma once

#include <iosfwd>
#include <string>

#include "console/exit_status.h"
#include "console/history_options.h"
#include "console/text_codec.h"
#include "platform/files.h"

namespace requite {

struct HistoryConsole {
  const ProgramFolder& Folder;
  TextCodec Codec;
  std::ostream& Out;
  std::ostream& Err;
  bool OutIsTerminal = false;
  std::string Now;  ///< date and time of UTC
};

/// `changes`: prints what has changed, or marks a site as known.
[[nodiscard]] ExitStatus RunChanges(const ChangesOptions& options, const HistoryConsole& console);
/// `history`: prints the scans.
[[nodiscard]] ExitStatus RunHistory(const HistoryOptions& options, const HistoryConsole& console);

}  // namespace requite
