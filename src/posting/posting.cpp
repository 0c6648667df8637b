// SPDX-License-Identifier: MIT
// Posts the result rows one by one and keeps the list of script URLs.
#include "posting/posting.h"

#include "model/visitor.h"
#include "platform/http_get_text.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"
#include "posting/url_encode.h"

namespace requite {

std::string FindScriptUrl(const RecordList<ScriptUrlEntry>& lstMulti, std::string_view mainSite) {
  for (std::size_t row = 0; row < lstMulti.RowCount(); ++row) {
    const ScriptUrlEntry& entry = lstMulti.At(row);
    if (Trim(entry.MainSite) == Trim(mainSite)) return entry.ScriptUrl;
  }
  return {};
}

void Posting::Wire() {
  tab_.optScript.OnClick = [this](int index) { optScript_Click(index); };
  tab_.lstMulti.OnItemClick = [this](int row) {
    if (row >= 0) tab_.cmdScriptDel.SetEnabled(true);
  };
  tab_.cmbSites.OnEnter = [this] { cmdScriptAdd(); };
  tab_.txtPost2.OnEnter = [this] { cmdScriptAdd(); };
  tab_.cmdScriptAdd.OnClick = [this] { cmdScriptAdd(); };
  tab_.cmdScriptDel.OnClick = [this] { cmdScriptDel(); };
  tab_.cmdPost.OnClick = [this] { PostLinks(); };
  tab_.cmdVariables.OnClick = [this] { cmdVariables(); };
  tab_.cmdExample.OnClick = [this] { cmdExample(); };
}

void Posting::PostLinks() {
  const int stops = stops_;
  ShowWindow();
  if (needs_.List3.Empty()) {
    ShowStatus("You must perform a scan for reciprocal links first");
    return;
  }
  const std::string atStart = tab_.txtPost.Text();
  // Events run during each row, so the list is looked up again for every row.
  for (std::size_t row = 0; row < needs_.List3.RowCount() && !EndedSince(stops); ++row) {
    std::string linkingSite;
    std::optional<std::string> url = UrlFor(needs_.List3.At(row), atStart, linkingSite);
    if (!url) continue;
    ShowStatus("Sending Site " + std::to_string(row + 1) + ": " + linkingSite);
    if (EndedSince(stops)) return;
    const std::string reply = HttpGetText(*url, VisitorOf(needs_.Settings), gets_, needs_.EventLoop);
    if (EndedSince(stops)) return;
    if (OnPosted) OnPosted(linkingSite, *url, !reply.empty());
    Log("\r\nURL: " + *url + "\r\n");
    if (!reply.empty()) Log("\r\nReturned: " + reply + "\r\n");
    needs_.Log.Text4().MoveCursorToEnd();
    needs_.Log.Posted(!reply.empty());
  }
}

int Posting::RowsToPost() const {
  int rows = 0;
  for (std::size_t row = 0; row < needs_.List3.RowCount(); ++row) {
    std::string linkingSite;
    if (UrlFor(needs_.List3.At(row), tab_.txtPost.Text(), linkingSite)) ++rows;
  }
  return rows;
}

std::optional<std::string> Posting::UrlFor(const LinkResult& row, const std::string& atStart,
                                           std::string& linkingSite) const {
  const std::optional<std::string> script = ScriptFor(row, atStart);
  if (!script) return std::nullopt;
  linkingSite = UrlEncodeValue(row.Linking);
  const bool linksBack = Contains(row.Status, "direct", Compare::Text);
  if (!linksBack && Contains(row.Status, "missing", Compare::Text)) return std::nullopt;
  // A domain link is posted as "False", although the results show it as a link. Scripts count on that.
  return BuildUrl(*script, {UrlEncodeValue(row.Main), linkingSite, linksBack ? "True" : "False",
                            UrlEncodeValue(row.LinkUrl)});
}

void Posting::ShowStatus(std::string text) {
  tab_.StatusBar1.SetPanel(StatusPanel::Activity, std::move(text));
  needs_.EventLoop.LetPendingEventsRun();
}

void Posting::Log(const std::string& text) {
  // A text box ends at the first NUL. Short replies are padded with them, so what follows, the line end
  // included, is lost.
  needs_.Log.Text4().Append(Before(text, '\0'));
}

void Posting::optScript_Click(int index) {
  needs_.Settings.SaveSetting(setting::optScript, index);
  const bool oneForEachSite = index == 1;
  tab_.txtPost.SetEnabled(!oneForEachSite);
  tab_.lstMulti.SetEnabled(oneForEachSite);
  tab_.cmdScriptAdd.SetEnabled(oneForEachSite);
  tab_.cmbSites.SetEnabled(oneForEachSite);
  tab_.txtPost2.SetEnabled(oneForEachSite);
  tab_.cmdScriptDel.SetEnabled(false);  // until a row is clicked
}

void Posting::cmdScriptAdd() {
  if (!MayAdd()) return;
  tab_.lstMulti.Add({tab_.cmbSites.Text(), tab_.txtPost2.Text()});
}

void Posting::cmdScriptDel() {
  PassOver([this] {
    const int row = tab_.lstMulti.SelectedRow();
    if (row >= 0) tab_.lstMulti.Remove(static_cast<std::size_t>(row));
  });
}

void MainPosting::ShowWindow() { needs_.Log.ShowForm5(); }

std::optional<std::string> MainPosting::ScriptFor(const LinkResult& row, const std::string&) const {
  if (tab_.optScript.Chosen() == 0) return tab_.txtPost.Text();
  std::string script = FindScriptUrl(tab_.lstMulti, row.Main);
  if (IsEmptyOrBlank(script)) return std::nullopt;
  return script;
}

std::string Posting::FillAllButMainSite(std::string url, const Values& values) {
  ReplaceIn(url, "$FoundOn", values.FoundOn, Compare::Text);
  ReplaceIn(url, "$LinkingSite", values.LinkingSite, Compare::Text);
  ReplaceIn(url, "$Status", values.Status, Compare::Text);
  return url;
}

std::string Posting::FillAll(std::string url, const Values& values) {
  ReplaceIn(url, "$MainSite", values.MainSite, Compare::Text);
  return FillAllButMainSite(std::move(url), values);
}

std::string MainPosting::BuildUrl(const std::string& script, const Values& values) const {
  return FillAll(script, values);
}

bool MainPosting::MayAdd() const { return tab_.cmbSites.Text() != "Select" && !tab_.cmbSites.Text().empty(); }

std::string ImportPosting::BuildUrl(const std::string& script, const Values& values) const {
  return FillAllButMainSite(script, values);
}

}  // namespace requite
