// SPDX-License-Identifier: MIT
// Puts each "href=" at the start of a line of its own and reads the lines as those of a page file are
// read.
#include "import/extract_links.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "import/import_resolve.h"
#include "platform/files.h"
#include "platform/needle_set.h"
#include "platform/text_search.h"

namespace requite {
namespace {

constexpr std::string_view kHref = "href=";
constexpr std::string_view kHrefOnLine = "\r\nhref=";

/// What cannot be a link page. The import has a list of its own that matches anywhere in the value, so
/// ".js" excludes a .jsp page too and ".ra" a .rar file.
class ImportFilter {
 public:
  [[nodiscard]] bool Takes(std::string_view value) const {
    if (value.find('#') != std::string_view::npos) return true;
    const LetterSet letters = LettersOf(value);
    return std::any_of(needles_.begin(), needles_.end(),
                       [&](const Needle& each) { return each.IsIn(value, letters); });
  }

 private:
  std::vector<Needle> needles_{Needle("javascript"), Needle("mailto"), Needle(".mpg"), Needle(".js"),
                               Needle(".mpeg"),      Needle(".swf"),   Needle(".avi"), Needle(".jpg"),
                               Needle(".jpeg"),      Needle(".gif"),   Needle(".bmp"), Needle(".mov"),
                               Needle(".rm"),        Needle(".mp3"),   Needle(".wav"), Needle(".ra"),
                               Needle(".pdf"),       Needle(".css"),   Needle(".exe"), Needle(".sit"),
                               Needle(".zip"),       Needle(".msi"),   Needle(".ppt"), Needle(".doc"),
                               Needle(".xls"),       Needle(".ico")};
};

}  // namespace

std::string_view CutImportValue(std::string_view line) {
  std::size_t begin = kHref.size();
  for (const char quote : {'"', '\''}) {
    if (begin < line.size() && line[begin] == quote) ++begin;
  }
  // Without a quote in front, an end mark that is the last character of the line is missed.
  const bool quoted = begin > kHref.size();
  const std::size_t searched = line.size() - (quoted ? 0 : 1);
  const std::size_t end = line.find_first_of("'>\"", begin);
  if (end < searched) return line.substr(begin, end - begin);
  const std::size_t kept = searched - 1;
  if (kept >= begin) return line.substr(begin, kept - begin);
  return line.substr(0, quoted ? kHref.size() - 1 : kept);
}

std::string ExtractLinks(std::string_view html, std::string_view base, const ExtractNeeds& needs) {
  const std::string page = Replace(html, kHref, kHrefOnLine, Compare::Text);
  const ImportFilter filter;
  const TextFinder ownSite(base);
  std::string links;
  std::size_t count = 0;
  LineReader lines(page, LineEnds::CarriageReturn);
  while (const std::optional<std::string_view> line = lines.Next()) {
    needs.EventLoop.LetPendingEventsRun();
    if (needs.Ended()) return {};
    if (!line->starts_with(kHref)) continue;
    std::string value(CutImportValue(*line));
    if (filter.Takes(value)) continue;
    ResolveImportLink(value, base, needs.State.Page.PageHost, needs.Settings);
    if (ownSite.IsIn(value)) continue;
    links += value;
    links += ',';
    ++count;
    needs.StatusBar1.SetPanel(StatusPanel::Activity, "Extracted " + std::to_string(count) + " link(s)");
    needs.EventLoop.LetPendingEventsRun();
    if (needs.Ended()) return {};
  }
  return links;
}

}  // namespace requite
