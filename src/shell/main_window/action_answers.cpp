// SPDX-License-Identifier: MIT
// The answers to the commands of the main window.
#include "shell/main_window/action_answers.h"

#include <array>
#include <set>

#include "platform/schemes.h"
#include "platform/text.h"
#include "shell/main_window/form1.h"

namespace requite {
namespace {

constexpr std::string_view kChooseRow = "Choose a row of the results first.";

}  // namespace

ActionAnswers::ActionAnswers(Form1& form, Receiver receiver) : form_(form), receiver_(std::move(receiver)) {
  WrapSites();
  WrapScan();
  WrapResults();
  WrapPages();
  WrapPosting();
  form_.Windows.OnMade = [this](ProgramWindow& window) { Made(window); };
}

ActionAnswers::~ActionAnswers() {
  for (auto each = unwrap_.rbegin(); each != unwrap_.rend(); ++each) (*each)();
  form_.Windows.OnMade = nullptr;
  form_.Pages.OnSaved = nullptr;
  form_.Saved.OnSaved = nullptr;
}

void ActionAnswers::Say(const std::string& words, const std::string& path) const {
  if (begun_ && receiver_) receiver_(words, path);
}

ActionAnswers::SiteCount ActionAnswers::LinkingSites() const {
  const int k = form_.Sites.CurrentMainSite;
  if (k < 1 || k > form_.Sites.ListCount()) return {};
  LinkingSiteList& list = form_.Sites.List1(k);
  return {list.RowCount(), list.KeyCount()};
}

ActionAnswers::SiteCount ActionAnswers::MainSites() const {
  std::set<std::string> different;
  const RecordList<MainSite>& list = form_.Sites.List4;
  for (std::size_t row = 0; row < list.RowCount(); ++row) different.insert(WebsiteKey::Of(list.At(row).Text));
  return {list.RowCount(), different.size()};
}

std::string ActionAnswers::CurrentMainSite() const {
  const int k = form_.Sites.CurrentMainSite;
  const bool exists = k >= 1 && k <= static_cast<int>(form_.Sites.List4.RowCount());
  return exists ? form_.Sites.List4.At(static_cast<std::size_t>(k - 1)).Text : std::string();
}

void ActionAnswers::WrapSites() {
  const auto addLinkingSite = [this](const Act& act) { AddLinkingSite(act); };
  Wrap(form_.cmdAdd.OnClick, addLinkingSite);
  Wrap(form_.Text1.OnEnter, addLinkingSite);
  const auto addMainSite = [this](const Act& act) { AddMainSite(act); };
  Wrap(form_.cmdAdd2.OnClick, addMainSite);
  Wrap(form_.txtDomain.OnEnter, addMainSite);
}

void ActionAnswers::AddLinkingSite(const Act& act) {
  std::string site = form_.Text1.Text();
  RemoveSchemes(site);
  const SiteCount before = LinkingSites();
  act();
  const SiteCount after = LinkingSites();
  if (after.Rows != before.Rows + 1) return;
  Say(std::string(Trim(site)) +
      (after.Different == before.Different ? " added, although it is in the list already." : " added."));
}

void ActionAnswers::AddMainSite(const Act& act) {
  const std::string site = form_.txtDomain.Text();
  const SiteCount before = MainSites();
  act();
  const SiteCount after = MainSites();
  if (after.Rows != before.Rows + 1) return;
  Say(site +
      (after.Different == before.Different ? " added, although it is in the list already." : " added."));
}

void ActionAnswers::WrapScan() {
  Wrap(form_.mnuScan.OnClick, [this](const Act& act, int index) {
    act();
    constexpr std::array kWhat = {"all Main Sites.", "the selected Main Site.", "the selected Linking Site."};
    if (index >= 0 && index < static_cast<int>(kWhat.size()))
      Say(std::string("Start Scan now scans ") + kWhat[static_cast<std::size_t>(index)]);
  });
  Wrap(form_.cmdSkip.OnClick, [this](const Act& act) {
    const std::string site = form_.State.CurrentLinkingUrl;
    const bool scanning = form_.State.Scanning;
    act();
    if (scanning) Say(site + " skipped.");
  });
}

void ActionAnswers::WrapResults() {
  Wrap(form_.Popup2.OnClick, [this](const Act& act, int index) { ClickResult(act, index); });
  form_.Saved.OnSaved = [this](const std::string& path, bool written) {
    if (written) return Say("Saved to", path);
    Say("Not saved: there is no report before the first scan, or the file could not be written:", path);
  };
}

void ActionAnswers::ClickResult(const Act& act, int index) {
  const RecordList<LinkResult>& results = form_.Sites.List3;
  const int selected = results.SelectedRow();
  // A mark is written over the name of the site.
  const LinkResult row = selected < 0 ? LinkResult() : results.At(static_cast<std::size_t>(selected));
  act();
  const auto entry = static_cast<PopupRow>(index);
  if (selected < 0 && entry != PopupRow::Separator) return Say(std::string(kChooseRow));
  switch (entry) {
    case PopupRow::CopyMainSite: return Say("Copied: " + row.Main);
    case PopupRow::CopyLinkingSite: return Say("Copied: " + row.Linking);
    case PopupRow::CopyFoundOn: return Say("Copied: " + row.LinkUrl);
    case PopupRow::MarkAsFound: return Say(row.Linking + " marked as found.");
    case PopupRow::MarkAsNoneFound: return Say(row.Linking + " marked as none found.");
    default: return;
  }
}

void ActionAnswers::WrapPages() {
  Wrap(form_.Command5.OnClick, [this](const Act& act) { GenerateLinks(act); });
  form_.Pages.OnSaved = [this](const std::string& path) { Say("Saved to", path); };
}

void ActionAnswers::GenerateLinks(const Act& act) {
  const bool hasResults = !form_.Sites.List3.Empty();
  act();
  if (!hasResults) return;
  constexpr std::string_view kLink = "<a href=";
  const std::string& html = form_.Sites.txtHTML2.Text();
  std::size_t links = 0;
  for (std::size_t at = html.find(kLink); at != std::string::npos; at = html.find(kLink, at + 1)) ++links;
  Say(std::to_string(links) + (links == 1 ? " link generated." : " links generated."));
}

void ActionAnswers::WrapPosting() {
  Wrap(form_.cmdPost.OnClick, [this](const Act& act) { Post(form_.Post, act); });
  const auto add = [this](const Act& act) {
    const std::size_t before = form_.Sites.lstMulti.RowCount();
    act();
    const bool added = form_.Sites.lstMulti.RowCount() > before;
    Say(added ? "Script URL of " + form_.cmbSites.Text() + " added." : "Choose a Main Site first.");
  };
  Wrap(form_.cmdScriptAdd.OnClick, add);
  Wrap(form_.cmbSites.OnEnter, add);
  Wrap(form_.txtPost2.OnEnter, add);
  Wrap(form_.cmdScriptDel.OnClick, [this](const Act& act) {
    const std::size_t before = form_.Sites.lstMulti.RowCount();
    act();
    if (form_.Sites.lstMulti.RowCount() < before) Say("Script URL deleted.");
  });
}

/// A second press posts inside the first run, so each run counts its own.
void ActionAnswers::Post(Posting& posting, const Act& act) {
  const int all = posting.RowsToPost();
  int posted = 0;
  int answered = 0;
  const auto outer = posting.OnPosted;
  posting.OnPosted = [&](const std::string&, const std::string&, bool hasReply) {
    ++posted;
    if (hasReply) ++answered;
  };
  act();
  posting.OnPosted = outer;
  if (form_.Sites.List3.Empty()) return;
  std::string words = "Posted " + std::to_string(posted) + " of " + std::to_string(all);
  if (answered < posted) words += ", " + std::to_string(answered) + " answered";
  Say(words + ".");
}

}  // namespace requite
