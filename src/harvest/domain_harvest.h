// SPDX-License-Identifier: MIT
// Collects domains from the result pages of a search engine, page after page.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "harvest/mod_database.h"
#include "model/project.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "platform/services.h"

namespace requite {

/// What a harvest works with. All of it must outlive the harvest.
struct DomainHarvestNeeds {
  const TextBox& txtSearch;
  const ComboBox& Combo1;
  const ComboBox& Combo2;
  requite::StatusBar& StatusBar1;
  TextBox& Text1;
  BrowserView& WebBrowser1;
  Project& Sites;
  modDatabase& Database;
  requite::EventLoop& EventLoop;
  const ProgramFolder& Folder;
  std::function<void(Counted kind)> UpdateStats;
  std::function<void()> cmdDoSearch_Click;
  std::function<void()> Hide;    ///< takes the window off the screen; it stays loaded
  std::function<void()> Unload;  ///< closes the window
};

/// One harvest, from the load of its window to its end.
class DomainHarvest {
 public:
  explicit DomainHarvest(DomainHarvestNeeds needs) : window_(std::move(needs)) {}

  /// The load of the window. Throws RuntimeFailure when the database cannot be emptied.
  void Start();
  /// A result page has come; `html` is its text as it was served. Nothing for a blank page, and nothing
  /// after the end.
  void OnResultPageComplete(std::string_view html);
  /// Keeps the unique domains of a result page and goes on with ContinueSearch. Lets events run at each
  /// line; when the window is closed meanwhile, the rest is left. Throws what the file system refuses.
  void ExtractResultPage(std::string_view html);
  /// The window is gone: what still runs ends at its next line.
  void Abandon() { abandoned_ = true; }

  std::string SearchTerm;
  std::string Engine;  ///< "Google" or "Yahoo"
  std::int32_t TargetResults = 0;
  std::int32_t UniqueResults = 0;
  std::int32_t PageResults = 0;  ///< kept from the latest page
  std::int32_t ResultOffset = 0;
  std::string SeenDomains;  ///< joined with no separator, so that a domain inside of two others is lost
  bool Finished = false;

 private:
  void BeginSearch();
  void ContinueSearch();
  void Keep(const std::string& domain);
  void TellOfTooFew();
  void TrySearchAgain();
  /// The request for the results from ResultOffset on.
  [[nodiscard]] std::string Request() const;

  DomainHarvestNeeds window_;
  bool abandoned_ = false;
};

}  // namespace requite
