// SPDX-License-Identifier: MIT
// All rules that apply count equally, whatever their scope. Their order decides only what is logged.
#include "scan/rules.h"

#include <optional>

#include "model/rule_kinds.h"
#include "platform/files.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

/// Nothing for an unknown word: such a rule never fails.
std::optional<RuleKind> KindOf(std::string_view word) {
  for (const RuleKind& kind : kRuleKinds) {
    if (kind.Word == word) return kind;
  }
  return std::nullopt;
}

std::string TextToFind(const RuleKind& kind, const std::string& value) {
  return kind.IsDirectory ? Replace("/" + value + "/", "//", "/", Compare::Binary) : value;
}

}  // namespace

void LogExclusion(const ProgramFolder& folder, std::string_view ruleType, std::string_view ruleValue,
                  std::string_view url) {
  std::string entry = "Excluded Site: ";
  entry.append(url).append(kLineEnd);
  entry.append("Rule Type: ").append(ruleType).append(kLineEnd);
  entry.append("Rule Value: ").append(ruleValue).append(kLineEnd);
  entry.append(kLineEnd).append(kLineEnd);
  AppendToFile(folder.File("rules.log"), entry);
}

bool Rules::PassesRules(std::string_view url) {
  const RecordList<Rule>& rules = project_.lstRules;
  if (rules.Empty()) return true;
  PickApplicable();
  if (applicable_.empty()) return true;
  const LetterSet letters = LettersOf(url);
  for (const Applicable& each : applicable_) {
    if (each.Value.IsIn(url, letters) == each.MustHold) continue;
    if (settings_.IsOne(setting::chkLog)) {
      const Rule& failed = rules.At(each.Row);
      // A log that cannot be written must not stop the scan.
      PassOver([&] { LogExclusion(folder_, failed.RuleType, failed.RuleValue, url); });
    }
    return false;
  }
  return true;
}

void Rules::PickApplicable() {
  // The rows are read for each URL: a recorded link may change the Website URL, and a rule for the old URL
  // does not apply any more.
  const std::string& mainSite =
      project_.List4.At(static_cast<std::size_t>(project_.CurrentMainSite) - 1).Text;
  const std::string& websiteUrl =
      project_.List1(project_.CurrentMainSite).At(static_cast<std::size_t>(state_.SiteRow) - 1).WebsiteUrl;
  const RecordList<Rule>& rules = project_.lstRules;
  if (picked_ && version_ == rules.Version() && mainSite_ == mainSite && websiteUrl_ == websiteUrl) return;
  applicable_.clear();
  for (std::size_t row = 0; row < rules.RowCount(); ++row) {
    const Rule& rule = rules.At(row);
    const std::optional<RuleKind> kind = KindOf(rule.RuleType);
    const bool forMainSite = rule.MainSite == mainSite || rule.MainSite == kGlobal;
    const bool forLinkingSite = rule.RemoteSite == websiteUrl || rule.RemoteSite == kGlobal;
    if (!kind || !forMainSite || !forLinkingSite) continue;
    applicable_.push_back({row, kind->MustHold, Needle(TextToFind(*kind, rule.RuleValue))});
  }
  version_ = rules.Version();
  mainSite_ = mainSite;
  websiteUrl_ = websiteUrl;
  picked_ = true;
}

}  // namespace requite
