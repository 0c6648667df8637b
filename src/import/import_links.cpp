// SPDX-License-Identifier: MIT
// What the import's buttons run. Events run meanwhile, so only copies of texts are kept across a yield.
#include "import/import_links.h"

#include <algorithm>

#include "import/extract_links.h"
#include "import/strip_tags.h"
#include "model/visitor.h"
#include "platform/http_get_text.h"
#include "platform/runtime_failure.h"
#include "platform/schemes.h"
#include "platform/text.h"

namespace requite {
namespace {

/// By row of the delimiter box.
constexpr std::array<std::string_view, 4> kDelimiters = {"|", "%", ",", "!"};

/// The host of the user's page, with the "/" after it where the URL has one.
std::string BaseOf(std::string url) {
  RemoveLowerCaseSchemesAndWww(url);
  const std::size_t slash = url.find('/');
  if (slash != std::string::npos) url.resize(slash + 1);
  return url;
}

class HeldDrawing {
 public:
  explicit HeldDrawing(ListView& list) : list_(list) { list_.SetRedraw(false); }
  ~HeldDrawing() { list_.SetRedraw(true); }
  HeldDrawing(const HeldDrawing&) = delete;
  HeldDrawing& operator=(const HeldDrawing&) = delete;

 private:
  ListView& list_;
};

}  // namespace

void ImportLinks::Wire() {
  tab_.Option1.OnClick = [this](int index) { needs_.Settings.SaveSetting(setting::getUrlOption, index); };
  tab_.Text1.OnChange = [this] { needs_.Settings.SaveSetting(setting::getURL1, tab_.Text1.Text()); };
  tab_.Text2.OnChange = [this] { needs_.Settings.SaveSetting(setting::getURL2, tab_.Text2.Text()); };
  tab_.Combo1.OnClick = [this] {
    needs_.Settings.SaveSetting(setting::getURLCombo, tab_.Combo1.ListIndex());
  };
  tab_.Combo1.OnChange = tab_.Combo1.OnClick;
  tab_.Command1.OnClick = [this] { GetLinks(); };
  tab_.ListView1.OnRightButtonUp = [this](int) { SelectAll(); };
  tab_.cmdAdd.OnClick = [this] { AddSelectedLinks(); };
  tab_.Command4.OnClick = [this] { ImportFromFile(); };
}

void ImportLinks::ReadSettings() {
  tab_.Text1.SetText(needs_.Settings.GetSetting(setting::getURL1));
  tab_.Text2.SetText(needs_.Settings.GetSetting(setting::getURL2));
  tab_.Combo1.SetListIndex(needs_.Settings.Number(setting::getURLCombo));
  tab_.Option1.Choose(needs_.Settings.Number(setting::getUrlOption));
}

void ImportLinks::GetLinks() {
  tab_.ListView1.Clear();
  const std::optional<std::string> list = tab_.Option1.Chosen() == 0 ? ListFromPage() : ListFromScript();
  if (list && !needs_.Ended()) ShowLinks(*list);
}

void ImportLinks::ShowConnecting(const std::string& url) {
  tab_.StatusBar1.SetPanel(StatusPanel::Activity,
                           "Conecting to " + url);  // with one "n", as users and their scripts know it
  needs_.EventLoop.LetPendingEventsRun();
}

std::optional<std::string> ImportLinks::ListFromPage() {
  std::string url = tab_.Text1.Text();
  ShowConnecting(url);
  if (needs_.Ended()) return std::nullopt;
  url = tab_.Text1.Text();
  const std::string html = HttpGetText(url, VisitorOf(needs_.Settings), gets_, needs_.EventLoop);
  if (needs_.Ended()) return std::nullopt;
  return ExtractLinks(html, BaseOf(tab_.Text1.Text()),
                      {needs_.State, needs_.Settings, tab_.StatusBar1, needs_.EventLoop, needs_.Ended});
}

std::optional<std::string> ImportLinks::Delimiter() {
  const int index = tab_.Combo1.ListIndex();
  if (index >= 0) return std::string(kDelimiters.at(static_cast<std::size_t>(index)));
  if (tab_.Combo1.Text() != kNoDelimiter) return tab_.Combo1.Text();
  needs_.Dialogs.Say("You must select a delimiter first");
  return std::nullopt;
}

std::optional<std::string> ImportLinks::ListFromScript() {
  const std::optional<std::string> delimiter = Delimiter();
  if (!delimiter) return std::nullopt;
  ShowConnecting(tab_.Text2.Text());
  if (needs_.Ended()) return std::nullopt;
  std::string url = tab_.Text2.Text();
  std::string text = HttpGetText(url, VisitorOf(needs_.Settings), gets_, needs_.EventLoop);
  ReplaceIn(text, kLineEnd, "", Compare::Binary);
  text = StripTags(text);
  // So blanks and commas separate entries too, whatever the delimiter.
  ReplaceIn(text, " ", *delimiter, Compare::Text);
  ReplaceIn(text, *delimiter, ",", Compare::Text);
  return text;
}

void ImportLinks::ShowLinks(std::string_view list) {
  const std::optional<std::size_t> count = AddRows(list);
  if (!count) return;
  tab_.StatusBar1.SetPanel(StatusPanel::Activity,
                           "Finished Downloading - " + std::to_string(*count) + " links found.");
}

std::optional<std::size_t> ImportLinks::AddRows(std::string_view list) {
  const HeldDrawing held(tab_.ListView1);
  // Every piece counts, also the empty one after the last comma of a page's list. An empty list has none.
  std::size_t count = 0;
  for (std::size_t begin = 0; begin <= list.size() && !list.empty();) {
    const std::size_t end = std::min(list.find(',', begin), list.size());
    // A row ends at the first NUL: short replies are padded with them.
    const std::string_view link = Before(Trim(list.substr(begin, end - begin)), '\0');
    tab_.ListView1.Add({std::string(link)});
    tab_.StatusBar1.SetPanel(StatusPanel::Activity,
                             "Added " + std::to_string(count) + " link(s)");  // one less than the rows
    ++count;
    begin = end + 1;
    needs_.EventLoop.LetPendingEventsRun();
    if (needs_.Ended()) return std::nullopt;
  }
  return count;
}

void ImportLinks::AddSelectedLinks() {
  PassOver([this] {
    Project& project = needs_.Project;
    if (project.CurrentMainSite < 1) return;  // the template list holds nothing
    LinkingSiteList& sites = project.List1(project.CurrentMainSite);
    const RecordList<FoundLink>& links = tab_.ListView1;
    for (std::size_t row = 0; row < links.RowCount(); ++row) {
      const std::string& url = links.At(row).Url;
      if (!links.IsSelected(row) || IsEmptyOrBlank(url)) continue;
      sites.Add({url, "", "", "", ""});
      // The last row of the list. In a sorted list that is not the row just added, which then keeps an
      // empty count: what a scan expects of both rows depends on this.
      sites.Set(sites.RowCount() - 1, &LinkingSite::LinksExpected, "1");
    }
  });
}

void ImportLinks::SelectAll() {
  for (std::size_t row = 0; row < tab_.ListView1.RowCount(); ++row) tab_.ListView1.AlsoSelect(row);
}

void ImportLinks::ImportFromFile() {
  const std::string path = needs_.Dialogs.AskOpenName(
      {needs_.Folder.File("Project Files"), "Text Files (*.txt)|*.txt", "", {}, "import"});
  if (path.empty() || needs_.Ended()) return;
  EndSilently([&] { AddLines(ReadFile(path)); });
}

void ImportLinks::AddLines(std::string_view text) {
  std::size_t count = 0;
  LineReader lines(text, LineEnds::Any);
  while (const std::optional<std::string_view> line = lines.Next()) {
    if (IsEmptyOrBlank(*line)) continue;
    ++count;
    if (version_.Line == ImportedLine::LinkingSite) {
      AddLinkingSite(*line);
      continue;
    }
    needs_.Project.AddMainSite(std::string(*line));
    needs_.EventLoop.LetPendingEventsRun();
    if (needs_.Ended()) return;
  }
  tab_.StatusBar1.SetPanel(StatusPanel::Activity,
                           "Added " + std::to_string(count) + std::string(version_.Unit));
}

void ImportLinks::AddLinkingSite(std::string_view line) {
  const Project& project = needs_.Project;
  if (project.CurrentMainSite < 1) throw RuntimeFailure(Failure::Subscript);
  LinkingSiteList& sites = needs_.Project.List1(project.CurrentMainSite);
  const std::size_t bar = line.find('|');
  const std::string website(Trim(line.substr(0, bar)));
  std::string expected = "1";
  if (bar != std::string_view::npos) expected = Before(line.substr(bar + 1), '|');
  sites.Add({website, expected, "", "", ""});
}

}  // namespace requite
