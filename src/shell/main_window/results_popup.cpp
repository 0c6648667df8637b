// SPDX-License-Identifier: MIT
// The actions of the results list's popup.
#include "shell/main_window/results_popup.h"

#include "platform/runtime_failure.h"

namespace requite {
namespace {

/// The column that a mark is written to: Linking, not Status. So the status of a marked row still counts
/// as before, and the row no longer belongs to its Linking Site. The report and the link page depend on
/// it.
constexpr std::size_t kMarkColumn = 1;

}  // namespace

std::vector<std::string> ResultsPopup::Captions() {
  return {"Browse Main Site",
          "Browse Linking Site",
          "Browse Found On",
          "Copy Main Site",
          "Copy Linking Site",
          "Copy Found On",
          "-",
          "Mark as Found",
          "Mark as None Found"};
}

void ResultsPopup::Click(int index) {
  switch (static_cast<PopupRow>(index)) {
    case PopupRow::BrowseMainSite: return Browse(&LinkResult::Main);
    case PopupRow::BrowseLinkingSite: return Browse(&LinkResult::Linking);
    case PopupRow::BrowseFoundOn: return Browse(&LinkResult::LinkUrl);
    case PopupRow::CopyMainSite: return Copy(&LinkResult::Main);
    case PopupRow::CopyLinkingSite: return Copy(&LinkResult::Linking);
    case PopupRow::CopyFoundOn: return Copy(&LinkResult::LinkUrl);
    case PopupRow::Separator: return;
    case PopupRow::MarkAsFound: return Mark(status::kDirect, kBlue, kIconGood);
    case PopupRow::MarkAsNoneFound: return Mark(status::kNoneFound, kRed, kIconBad);
  }
}

void ResultsPopup::Browse(std::string LinkResult::*field) {
  // A copy, since the opened page may lead to an event that changes the list.
  PassOver([&] { browseInWebTab_(std::string(list3_.At(Selected()).*field)); });
}

void ResultsPopup::Copy(std::string LinkResult::*field) {
  PassOver([&] { clipboard_.Clear(); });
  PassOver([&] { clipboard_.SetText(list3_.At(Selected()).*field); });
}

void ResultsPopup::Mark(std::string_view word, std::uint32_t colour, int icon) {
  PassOver([&] { list3_.SetFieldAt(Selected(), kMarkColumn, std::string(word)); });
  PassOver([&] { list3_.SetColour(Selected(), colour); });
  PassOver([&] { list3_.SetIcon(Selected(), icon); });
}

std::size_t ResultsPopup::Selected() const {
  const int row = list3_.SelectedRow();
  if (row < 0) throw RuntimeFailure(Failure::Subscript);
  return static_cast<std::size_t>(row);
}

}  // namespace requite
