// SPDX-License-Identifier: MIT
// Builds the HTML of the link page and saves it.
#include "pagebuilder/page_builder.h"

#include <string_view>
#include <unordered_set>

#include "pagebuilder/link_pages.h"
#include "platform/schemes.h"
#include "platform/text.h"
#include "platform/whole_file.h"

namespace requite {
namespace {

constexpr int kOneMainSite = 1;

struct Style {
  bool Bullets;
  bool NewWindow;
};

/// Fields are not escaped: users put their own tags there.
std::string Entry(LinkPages& pages, const std::string& linking, int k, Style style) {
  std::string url = pages.GetLinkPageUrl(linking, k);
  const std::string text = pages.GetLinkPageText(linking, k);
  const std::string description = pages.GetLinkPageDescription(linking, k);
  PutHttpInFront(url, scheme_sign::kHttp);

  std::string entry = "<a href=\"" + url + "\"";
  if (style.NewWindow) entry += " target=\"_blank\"";
  entry += ">" + text + "</a>";
  if (!IsEmptyOrBlank(description)) entry += "<BR>" + description;
  if (style.Bullets) entry = "<li>" + entry + "</li>";
  return entry + "<br><br>\r\n";
}

}  // namespace

void PageBuilder::GenerateLinks() {
  if (project_.List3.Empty()) {
    dialogs_.Say(
        "No links were found in your Links List to generate HTML from.  Please scan for links first.");
    return;
  }
  project_.txtHTML2.SetText(Links());
}

std::string PageBuilder::Links() const {
  const Style style{options_.chkBullet.Value() == 1, options_.chkNewWin.Value() == 1};
  const bool onlyOne = options_.optAll.Chosen() == kOneMainSite;
  LinkPages pages(project_);
  // The hosts with an entry are compared with Main Sites, so only a Main Site that is also the host of an
  // earlier entry is left out, and a host with several links gets an entry for each. The unused slot
  // after the last host is compared too and equals a Main Site without text. Generated pages depend on
  // it.
  std::unordered_set<std::string_view> used;
  std::string out;
  for (std::size_t row = 0; row < project_.List3.RowCount(); ++row) {
    const LinkResult& result = project_.List3.At(row);
    if (onlyOne && result.Main != options_.Combo3.Text()) continue;
    const int k = pages.FindMainSiteIndex(result.Main) + 1;
    if (!used.empty() && (result.Main.empty() || used.contains(result.Main))) continue;
    // Anywhere in the word, so indirect and redirected links count too.
    if (!Contains(result.Status, "direct", Compare::Text)) continue;
    used.insert(result.Linking);
    out += Entry(pages, result.Linking, k, style);
  }
  return out;
}

std::string PageBuilder::WebPage() const {
  std::string page = project_.txtHTML1.Text();
  page += "\r\n\r\n";
  page += project_.txtHTML2.Text();
  page += "\r\n\r\n";
  page += project_.txtHTML3.Text();
  return page += kLineEnd;
}

void PageBuilder::SaveWebpage() {
  const std::string page = WebPage();
  const std::string name = dialogs_.AskSaveName(
      {folder_.Path, "Web Files (*.htm, *.html, *.asp, *.php, *.txt)|*.htm;*.asp;*.php;*.html", ""});
  if (name.empty()) return;
  // A hidden or missing file is appended to; any other is replaced without a question.
  if (xfileExists(name)) {
    WriteWhole(name, page, Flush::No);
  } else {
    AppendToFile(name, page);
  }
  if (OnSaved) OnSaved(name);
}

}  // namespace requite
