// SPDX-License-Identifier: MIT
// What the user works on: the collections of a project, each under the name of the view that shows it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "model/keyed_list.h"
#include "model/records.h"
#include "platform/controls.h"

namespace requite {

/// The form in which a Website URL is compared with a page: without any "www.", in lower case.
struct WebsiteKey {
  [[nodiscard]] static std::string Of(std::string_view url);
  [[nodiscard]] static std::string Key(const LinkingSite& site) { return Of(site.WebsiteUrl); }
};

/// Queued pages are compared ignoring letter case.
struct PageKey {
  [[nodiscard]] static std::string Key(const QueuedPage& page) { return Lower(page.Url); }
};

using LinkingSiteList = KeyedList<LinkingSite, WebsiteKey>;
using PageQueue = KeyedList<QueuedPage, PageKey>;

class Project {
 public:
  Project();

  RecordList<MainSite> List4{"List4"};
  RecordList<LinkResult> List3{"List3"};
  RecordList<Rule> lstRules{"lstRules"};
  RecordList<ScriptUrlEntry> lstMulti{"lstMulti"};
  TextBox txtHTML1{"txtHTML1"};
  TextBox txtHTML2{"txtHTML2"};
  TextBox txtHTML3{"txtHTML3"};
  TextBox txtPost{"txtPost", "http://"};

  std::int16_t CurrentMainSite = 0;  ///< 1-based number of the Main Site on show
  /// The row that an editor was asked for last: counted from 1 for a Linking Site, from 0 for a Main
  /// Site. The editors share it.
  std::int16_t CurrentEditIndex = 0;
  bool ProjectSaved = true;  ///< there are no unsaved edits
  bool JustLoaded = false;   ///< the next change of the Main Site entry box is no edit

  /// The Linking Sites of Main Site k, counted from 1; List1(0) is the template, which holds nothing.
  /// Throws Subscript for a list that does not exist. The reference ends with the list.
  [[nodiscard]] LinkingSiteList& List1(int k);
  [[nodiscard]] const LinkingSiteList& List1(int k) const;
  /// The number of lists beside the template.
  [[nodiscard]] int ListCount() const { return static_cast<int>(lists_.size()) - 1; }

  /// Appends an empty list with the next free number, hidden like the template. Throws Overflow
  /// when there are 32767 lists already, since CurrentMainSite could not name the next one.
  LinkingSiteList& CreateLinkingSiteList();
  /// Drops every list but the template, highest number first.
  void DropLinkingSiteLists();
  /// Appends a Main Site together with its empty list; both or, with CreateLinkingSiteList's failure, none.
  void AddMainSite(std::string text);

  /// Hears of each list that is made or about to go, so that its view can follow.
  std::function<void(LinkingSiteList& list, int k)> OnListCreated;
  std::function<void(LinkingSiteList& list, int k)> OnListDropped;

 private:
  std::vector<std::unique_ptr<LinkingSiteList>> lists_;
};

/// Lists beside the project that are never saved with it.
struct ScanLists {
  PageQueue List2{"List2"};
  RecordList<ErrorEntry> lstErr{"lstErr"};
};

}  // namespace requite
