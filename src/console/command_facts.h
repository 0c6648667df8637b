// SPDX-License-Identifier: MIT
// The command line as plain data, for the manual page and the completion of shells.
#pragma once

#include <string>
#include <vector>

namespace requite {

struct OptionFacts {
  std::vector<std::string> Names;  ///< with their dashes, the short one first; an argument has one, without
  std::string Form;  ///< of the value; empty when it takes none. "FILE", "DIR" or "a|b" among others
  std::string Words;
  std::string Group;  ///< the heading in help, empty for the usual one
  int Values = 0;     ///< how many words it takes
  bool Repeats = false;
  bool Required = false;
};

struct CommandFacts {
  std::string Name;
  std::string Words;
  std::vector<OptionFacts> Arguments;
  std::vector<OptionFacts> Options;
  std::string Footer;  ///< paragraphs that each end in a line end, but for the last
};

/// All commands in the order of help, after an entry for the program itself, named `requite-console`.
[[nodiscard]] std::vector<CommandFacts> DescribeCommands();

}  // namespace requite
