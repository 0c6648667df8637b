// SPDX-License-Identifier: MIT
// The popup menu of the results list: browse, copy and mark the selected row.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "model/record_list.h"
#include "model/records.h"
#include "platform/services.h"

namespace requite {

/// The entries of `mnuPopup2Item`.
enum class PopupRow {
  BrowseMainSite = 0,
  BrowseLinkingSite = 1,
  BrowseFoundOn = 2,
  CopyMainSite = 3,
  CopyLinkingSite = 4,
  CopyFoundOn = 5,
  Separator = 6,
  MarkAsFound = 7,
  MarkAsNoneFound = 8,
};

/// The entries of `Popup2` and their actions on the selected row of the list. A failure, such as no
/// selected row, is passed over and the action continues with its next step.
class ResultsPopup {
 public:
  /// `browseInWebTab` is called with the URL as the list holds it.
  ResultsPopup(RecordList<LinkResult>& list3, Clipboard& clipboard,
               std::function<void(const std::string& url)> browseInWebTab)
      : list3_(list3), clipboard_(clipboard), browseInWebTab_(std::move(browseInWebTab)) {}

  /// The captions of `mnuPopup2Item`, by index; "-" is a separator.
  [[nodiscard]] static std::vector<std::string> Captions();

  /// Runs the action of an entry, counted from 0. The separator and higher numbers do nothing.
  void Click(int index);

 private:
  void Browse(std::string LinkResult::*field);
  void Copy(std::string LinkResult::*field);
  void Mark(std::string_view word, std::uint32_t colour, int icon);
  [[nodiscard]] std::size_t Selected() const;

  RecordList<LinkResult>& list3_;
  Clipboard& clipboard_;
  std::function<void(const std::string& url)> browseInWebTab_;
};

}  // namespace requite
