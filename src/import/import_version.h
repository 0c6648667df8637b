// SPDX-License-Identifier: MIT
// The import of Linking Sites and the import of Main Sites: what differs between the two.
#pragma once

#include <string_view>

namespace requite {

/// What a line of an imported file becomes.
enum class ImportedLine {
  LinkingSite,  ///< of the current Main Site; a number of links expected may follow a "|"
  MainSite,     ///< the line unchanged
};

/// One of the two imports. Only the import from a file adds Main Sites: links from a page or a script
/// become Linking Sites in both.
struct ImportVersion {
  std::string_view Name;  ///< of the window
  std::string_view Title;
  std::string_view Frame3;
  std::string_view Label12;
  std::string_view Command4Tip;
  std::string_view Command1Tip;
  ImportedLine Line;
  std::string_view Unit;  ///< what the closing status counts
};

inline constexpr ImportVersion kImportLinkingSites{
    "Form4",
    "Import Linking Sites",
    "Get linking sites from a file",
    "You can import linking sites from a text (.txt) file by entering one URL per line.",
    "Import websites from a file",
    "Import websites from the URL entered above",
    ImportedLine::LinkingSite,
    " link(s)"};

inline constexpr ImportVersion kImportMainSites{
    "Form4a",
    "Import Main Sites",
    "Get main sites from a file",
    "You can import main sites from a text (.txt) file by entering one URL per line.",
    "Import Main Sites from a file",
    "",
    ImportedLine::MainSite,
    " site(s)"};

}  // namespace requite
