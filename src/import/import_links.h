// SPDX-License-Identifier: MIT
// Fills the site lists from the user's own page, a script's output or a text file.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "import/import_version.h"
#include "model/project.h"
#include "model/settings.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "platform/services.h"
#include "scan/scan_state.h"

namespace requite {

/// A link that was found, as the list shows it.
struct FoundLink {
  std::string Url;

  static constexpr std::array<Column<FoundLink>, 1> Columns() { return {{{"Link URL", &FoundLink::Url}}}; }
};

/// The text of the delimiter box until a delimiter is chosen.
inline constexpr std::string_view kNoDelimiter = "Select or Type a Delimiter";

/// The controls that an import works with. They must outlive every run.
struct ImportTab {
  OptionGroup& Option1;  ///< 0: a page, 1: a script
  TextBox& Text1;
  TextBox& Text2;
  ComboBox& Combo1;
  Button& Command1;
  RecordList<FoundLink>& ListView1;
  Button& cmdAdd;
  Button& Command4;
  StatusBar& StatusBar1;
};

struct ImportNeeds {
  requite::Project& Project;
  const ScanState& State;
  requite::Settings Settings;
  requite::Internet& Internet;
  requite::EventLoop& EventLoop;
  requite::Dialogs& Dialogs;
  const ProgramFolder& Folder;
  std::function<bool()> Ended;  ///< the window has been closed: a run ends
};

/// Its actions let events run, and nothing prevents a second press meanwhile: that one runs to its end
/// inside the first, which then adds its own rows to those of the second.
class ImportLinks {
 public:
  ImportLinks(const ImportVersion& version, ImportNeeds needs, const ImportTab& tab)
      : version_(version), needs_(std::move(needs)), tab_(tab), gets_(needs_.Internet) {}
  ImportLinks(const ImportLinks&) = delete;
  ImportLinks& operator=(const ImportLinks&) = delete;

  /// Sets the handlers of every control of the tab.
  void Wire();
  /// Puts the settings into the controls. Throws RuntimeFailure for a stored text that is no number or
  /// that the control does not have.
  void ReadSettings();

  /// Replaces the rows by the links of the page or of the script. A request that fails gives no rows.
  void GetLinks();
  /// Ends the requests of all runs in progress, when the window is closed.
  void Stop() { gets_.Abort(); }
  /// Appends the selected rows to the Linking Sites of the current Main Site, repeats included. Does
  /// nothing without a current Main Site.
  void AddSelectedLinks();
  /// Asks for a text file and adds a site for each line. A failure ends it silently; the lines before it
  /// stay added.
  void ImportFromFile();

 private:
  [[nodiscard]] std::optional<std::string> ListFromPage();
  [[nodiscard]] std::optional<std::string> ListFromScript();
  [[nodiscard]] std::optional<std::string> Delimiter();
  void ShowConnecting(const std::string& url);
  void ShowLinks(std::string_view list);
  /// The number of rows; nothing if the window was closed meanwhile.
  [[nodiscard]] std::optional<std::size_t> AddRows(std::string_view list);
  void AddLines(std::string_view text);
  void AddLinkingSite(std::string_view line);
  void SelectAll();

  const ImportVersion& version_;
  ImportNeeds needs_;
  ImportTab tab_;
  Gets gets_;
};

}  // namespace requite
