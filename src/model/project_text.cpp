// SPDX-License-Identifier: MIT
// Writes the records of a project into one text.
#include "model/project_text.h"

#include <initializer_list>

#include "platform/text.h"

namespace requite {
namespace {

void AppendLine(std::string& text, std::string_view marker, std::string_view line) {
  text.append(marker).append(line).append(kLineEnd);
}

void AppendFields(std::string& text, std::string_view marker,
                  std::initializer_list<std::string_view> fields) {
  text.append(marker);
  bool first = true;
  for (const std::string_view field : fields) {
    if (!first) text += '|';
    first = false;
    text.append(field);
  }
  text.append(kLineEnd);
}

void AppendLinkingSites(std::string& text, const LinkingSiteList& list) {
  for (std::size_t row = 0; row < list.RowCount(); ++row) {
    const LinkingSite& site = list.At(row);
    // The Link Page Text is written twice, and the reader takes the second one for the Description. Older
    // readers need six fields.
    AppendFields(text, "",
                 {site.WebsiteUrl, site.LinksExpected, site.LinkPageUrl, site.LinkPageText, site.LinkPageText,
                  site.Description});
  }
}

void AppendSites(std::string& text, const Project& project, int leaveOutRow) {
  bool first = true;
  for (int row = 0; row < static_cast<int>(project.List4.RowCount()); ++row) {
    if (row == leaveOutRow) continue;
    AppendLine(text, first ? "" : marker::kNextSite, project.List4.At(static_cast<std::size_t>(row)).Text);
    first = false;
    AppendLinkingSites(text, project.List1(row + 1));
  }
}

void AppendPageBuilderText(std::string& text, std::string_view marker, const TextBox& box) {
  AppendLine(text, marker, Replace(box.Text(), kLineEnd, kLineEndMark, Compare::Binary));
}

void AppendResults(std::string& text, const RecordList<LinkResult>& results) {
  for (std::size_t row = 0; row < results.RowCount(); ++row) {
    const LinkResult& result = results.At(row);
    AppendFields(text, marker::kResult,
                 {std::to_string(results.Icon(row)), result.Main, result.Linking, result.Status, result.No,
                  result.LinkUrl});
  }
}

void AppendRules(std::string& text, const RecordList<Rule>& rules) {
  for (std::size_t row = 0; row < rules.RowCount(); ++row) {
    const Rule& rule = rules.At(row);
    AppendFields(text, marker::kRule, {rule.MainSite, rule.RemoteSite, rule.RuleType, rule.RuleValue});
  }
}

void AppendScriptUrls(std::string& text, const Project& project) {
  if (!project.txtPost.Text().empty()) AppendLine(text, marker::kPostSingle, project.txtPost.Text());
  for (std::size_t row = 0; row < project.lstMulti.RowCount(); ++row) {
    const ScriptUrlEntry& entry = project.lstMulti.At(row);
    AppendFields(text, marker::kPostMulti, {entry.MainSite, entry.ScriptUrl});
  }
}

}  // namespace

std::string ProjectText(const Project& project, int leaveOutRow) {
  std::string text;
  AppendSites(text, project, leaveOutRow);
  AppendPageBuilderText(text, marker::kHtml1, project.txtHTML1);
  AppendPageBuilderText(text, marker::kHtml2, project.txtHTML2);
  AppendPageBuilderText(text, marker::kHtml3, project.txtHTML3);
  AppendResults(text, project.List3);
  AppendRules(text, project.lstRules);
  AppendScriptUrls(text, project);
  return text;
}

}  // namespace requite
