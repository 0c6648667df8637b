// SPDX-License-Identifier: MIT
// Checks that the files named on a command line can be used, before anything is done.
#pragma once

#include <string>

namespace requite {

/// The absolute path; an empty path stays empty.
[[nodiscard]] std::string AbsolutePath(const std::string& path);

/// Each returns an empty text when all is well, otherwise one line that names the path. An empty path
/// means that the file was not asked for, which is fine everywhere except in WhyNotReadable.
[[nodiscard]] std::string WhyNotReadable(const std::string& path);
[[nodiscard]] std::string WhyNotWritable(const std::string& path);
/// A missing settings file is fine: it is created together with its folder.
[[nodiscard]] std::string WhyNoSettings(const std::string& path);
/// For a file that is copied if it exists.
[[nodiscard]] std::string WhyNoCopy(const std::string& path);
[[nodiscard]] std::string WhyNoFolder(const std::string& path);

/// What a scan needs in the program's folder.
[[nodiscard]] std::string WhyNoProgramFolder(const std::string& folder);

}  // namespace requite
