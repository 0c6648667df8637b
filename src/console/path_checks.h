// SPDX-License-Identifier: MIT
// Whether the files that a command line names can be used; asked before anything is done.
#pragma once

#include <string>

namespace requite {

/// The path from the root on; an empty path stays empty.
[[nodiscard]] std::string AbsolutePath(const std::string& path);

/// Each returns an empty text when all is well, else one line of words that name the path. An empty
/// path is a file that was not asked for: all is well with it, but for WhyNotReadable.
[[nodiscard]] std::string WhyNotReadable(const std::string& path);
[[nodiscard]] std::string WhyNotWritable(const std::string& path);
/// A settings file that does not stand yet is made together with its folder.
[[nodiscard]] std::string WhyNoSettings(const std::string& path);
/// A file that is to be copied if it is there.
[[nodiscard]] std::string WhyNoCopy(const std::string& path);
[[nodiscard]] std::string WhyNoFolder(const std::string& path);

/// Whether a scan finds what it needs in the program's folder.
[[nodiscard]] std::string WhyNoProgramFolder(const std::string& folder);

}  // namespace requite
