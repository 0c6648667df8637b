// SPDX-License-Identifier: MIT
// Filling the site lists from the user's own page, from a script's output or from a text file.
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

/// A link that was found, as it is shown.
struct FoundLink {
  std::string Url;

  static constexpr std::array<Column<FoundLink>, 1> Columns() { return {{{"Link URL", &FoundLink::Url}}}; }
};

/// The text that a delimiter box shows before anything was chosen.
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
  std::function<bool()> Ended;  ///< the window has been closed: a run goes no further
};

/// Runs let events run, and nothing guards against a second press meanwhile: it runs whole inside the
/// first, which then adds its own rows to those of the second.
class ImportLinks {
 public:
  ImportLinks(const ImportVersion& version, ImportNeeds needs, const ImportTab& tab)
      : version_(version), needs_(std::move(needs)), tab_(tab), gets_(needs_.Internet) {}
  ImportLinks(const ImportLinks&) = delete;
  ImportLinks& operator=(const ImportLinks&) = delete;

  /// Sets the handlers of every control of the tab.
  void Wire();
  /// Puts the settings into the controls. Throws RuntimeFailure for a stored number that is none or that
  /// the control does not have.
  void ReadSettings();

  /// Gets the links of the page or of the script and shows them in place of the rows. A request that
  /// fails gives no rows.
  void GetLinks();
  /// Ends the request of every run in progress: its window has been closed.
  void Stop() { gets_.Abort(); }
  /// Appends the selected rows to the Linking Sites of the current Main Site. Repeats are added too;
  /// without a current Main Site nothing happens.
  void AddSelectedLinks();
  /// Asks for a text file and adds a site for each of its lines. A failure ends it silently, with the
  /// lines before it added.
  void ImportFromFile();

 private:
  [[nodiscard]] std::optional<std::string> ListFromPage();
  [[nodiscard]] std::optional<std::string> ListFromScript();
  [[nodiscard]] std::optional<std::string> Delimiter();
  void ShowConnecting(const std::string& url);
  void ShowLinks(std::string_view list);
  /// How many rows they are; nothing if the window was closed meanwhile.
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
