// SPDX-License-Identifier: MIT
// The copy of the project is made a list at a time, when the first lane needs it.
#include "runahead/lane_surroundings.h"

#include "platform/text.h"

namespace requite {

std::optional<std::string> LaneSettings::Read(std::string_view key) {
  for (const SettingKey& silent : {setting::chkLog, setting::chkAudioEmail}) {
    if (Equals(key, silent.Name, Compare::Text)) return "0";
  }
  return store_.Read(key);
}

LaneSurroundings::LaneSurroundings(ScanContext& scan)
    : scan_(scan), settings_(scan.Platform.Store), work_(scan.Folder) {}

Services LaneSurroundings::ServicesFor(Connection& connection) {
  Services& real = scan_.Platform;
  return {loop_,    connection,     timer_,  timer_,     real.Internet, settings_,
          dialogs_, real.Clipboard, sounds_, real.Shell, real.Clock};
}

void LaneSurroundings::CopyMainSites() {
  project_.DropLinkingSiteLists();
  project_.List4.Clear();
  const RecordList<MainSite>& from = scan_.Project.List4;
  for (std::size_t row = 0; row < from.RowCount(); ++row) project_.AddMainSite(from.At(row).Text);
  copied_.assign(from.RowCount() + 1, false);
}

void LaneSurroundings::CopyRules() {
  const RecordList<Rule>& from = scan_.Project.lstRules;
  if (rulesVersion_ == from.Version()) return;
  rulesVersion_ = from.Version();
  project_.lstRules.Clear();
  for (std::size_t row = 0; row < from.RowCount(); ++row) project_.lstRules.Add(from.At(row));
}

void LaneSurroundings::CopyList(int k) {
  LinkingSiteList& to = project_.List1(k);
  to.Clear();
  const LinkingSiteList& from = static_cast<const requite::Project&>(scan_.Project).List1(k);
  for (std::size_t row = 0; row < from.RowCount(); ++row) {
    to.Add({from.At(row).WebsiteUrl, from.At(row).LinksExpected, {}, {}, {}});
  }
  copied_[static_cast<std::size_t>(k)] = true;
}

void LaneSurroundings::Prepare(const PlannedSite& site) {
  const requite::Project& from = scan_.Project;
  const int k = site.Place.MainSiteNumber;
  if (project_.List4.RowCount() != from.List4.RowCount()) CopyMainSites();
  const auto mainRow = static_cast<std::size_t>(k) - 1;
  if (project_.List4.At(mainRow).Text != site.MainSite) {
    project_.List4.Set(mainRow, &MainSite::Text, site.MainSite);
  }
  CopyRules();
  const bool hasRows = project_.List1(k).RowCount() == from.List1(k).RowCount();
  if (!copied_[static_cast<std::size_t>(k)] || !hasRows) CopyList(k);
  const auto row = static_cast<std::size_t>(site.Place.Row) - 1;
  if (project_.List1(k).At(row).WebsiteUrl != site.LinkingSite) {
    project_.List1(k).Set(row, &LinkingSite::WebsiteUrl, site.LinkingSite);
  }
}

void LaneSurroundings::Enter(const PlannedSite& site) {
  project_.CurrentMainSite = static_cast<std::int16_t>(site.Place.MainSiteNumber);
  if (!project_.List3.Empty()) project_.List3.Clear();
}

}  // namespace requite
