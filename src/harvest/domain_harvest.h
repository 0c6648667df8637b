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

/// One harvest. It lasts as long as its window.
class DomainHarvest {
 public:
  explicit DomainHarvest(DomainHarvestNeeds needs) : window_(std::move(needs)) {}

  /// Run when the window loads. Throws RuntimeFailure when the database cannot be emptied.
  void Start();
  /// Reads a result page; `html` is its text as served. Does nothing for a blank page or after the
  /// harvest has finished.
  void OnResultPageComplete(std::string_view html);
  /// Keeps the unique domains of a result page, then calls ContinueSearch. Lets events run at each line;
  /// when the window is closed meanwhile, it stops there. Throws what the file system refuses.
  void ExtractResultPage(std::string_view html);
  /// The window was closed: a page in progress ends at its next line.
  void Abandon() { abandoned_ = true; }

  std::string SearchTerm;
  std::string Engine;  ///< "Google" or "Yahoo"
  std::int32_t TargetResults = 0;
  std::int32_t UniqueResults = 0;
  std::int32_t PageResults = 0;  ///< domains kept from the latest page
  std::int32_t ResultOffset = 0;
  std::string SeenDomains;  ///< joined without a separator: a domain that occurs across two others is lost
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
