// SPDX-License-Identifier: MIT
// Compares with copies. Settings have no version, so their texts are compared.
#include "scan/link_circumstances.h"

#include <utility>

namespace requite {
namespace {

/// Returns whether the copy was another one.
template <class Value>
bool Update(Value& copy, const Value& value) {
  if (copy == value) return false;
  copy = value;
  return true;
}

}  // namespace

bool LinkCircumstances::HaveChanged(const ScanContext& scan) {
  bool changed = Update(numbers_, NumbersOf(scan));
  changed |= Update(mainSiteKey_, scan.State.MainSiteKey);
  changed |= Update(fileTypes_, scan.State.FileTypes);
  changed |= Update(usesFileTypes_, scan.Settings.GetSetting(setting::chkFileTypes));
  changed |= Update(secure_, scan.Settings.GetSetting(setting::chkSecure));
  return changed;
}

LinkCircumstances::Numbers LinkCircumstances::NumbersOf(const ScanContext& scan) {
  const Project& project = scan.Project;
  const int list = project.CurrentMainSite;
  const bool exists = list >= 0 && list <= project.ListCount();
  return {scan.State.Sites,
          static_cast<std::uint64_t>(list),
          static_cast<std::uint64_t>(scan.State.SiteRow),
          exists ? project.List1(list).Version() + 1 : 0,
          project.List4.Version(),
          project.lstRules.Version()};
}

}  // namespace requite
