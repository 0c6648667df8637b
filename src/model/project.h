// SPDX-License-Identifier: MIT
// What the user works on: the collections of a project, each with the name of the view that shows it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "model/keyed_list.h"
#include "model/records.h"
#include "platform/controls.h"

namespace requite {

/// Website URLs are compared without any "www." and in lower case.
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

  std::int16_t CurrentMainSite = 0;  ///< 1-based number of the Main Site that is shown
  /// The row that an editor was last opened for: counted from 1 for a Linking Site, from 0 for a Main Site.
  /// The editors share it.
  std::int16_t CurrentEditIndex = 0;
  bool ProjectSaved = true;  ///< there are no unsaved edits
  bool JustLoaded = false;   ///< the next change of the Main Site entry box is not an edit

  /// The Linking Sites of Main Site k, counted from 1; List1(0) is the template, which is always empty.
  /// Throws Subscript for a list that does not exist. The reference is valid until the list is dropped.
  [[nodiscard]] LinkingSiteList& List1(int k);
  [[nodiscard]] const LinkingSiteList& List1(int k) const;
  /// The number of lists without the template.
  [[nodiscard]] int ListCount() const { return static_cast<int>(lists_.size()) - 1; }

  /// Appends an empty list with the next number, hidden like the template. Throws Overflow when there are
  /// 32767 lists: CurrentMainSite could not hold the next number.
  LinkingSiteList& CreateLinkingSiteList();
  /// Drops all lists except the template, the highest number first.
  void DropLinkingSiteLists();
  /// Appends a Main Site and its empty list. When CreateLinkingSiteList throws, neither is added.
  void AddMainSite(std::string text);

  /// Called after a list is made and before it is dropped, for its view.
  std::function<void(LinkingSiteList& list, int k)> OnListCreated;
  std::function<void(LinkingSiteList& list, int k)> OnListDropped;

 private:
  std::vector<std::unique_ptr<LinkingSiteList>> lists_;
};

/// Lists that are never saved with the project.
struct ScanLists {
  PageQueue List2{"List2"};
  RecordList<ErrorEntry> lstErr{"lstErr"};
};

}  // namespace requite
