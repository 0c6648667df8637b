// SPDX-License-Identifier: MIT
// A scan as JSON, with one line for each site, so that two scans can be compared by lines.
#include "platform/quoting.h"
#include "results/outcome.h"

namespace requite {
namespace {

/// Rises when a reader of the last format would misunderstand the new one; a new member is no such change.
constexpr int kJsonFormat = 1;

std::string Member(const char* name, const std::string& json) {
  return std::string("\"") + name + "\": " + json;
}
std::string Text(const char* name, const std::string& utf8) { return Member(name, JsonString(utf8)); }
std::string Number(const char* name, int number) { return Member(name, std::to_string(number)); }
std::string Flag(const char* name, bool flag) { return Member(name, flag ? "true" : "false"); }

std::string Json(const ScanOutcome::Link& link);
std::string Json(const ScanOutcome::Site& site);
std::string Json(const ScanOutcome::Fault& fault);

template <class Item>
std::string List(const std::vector<Item>& items, const std::string& separator) {
  std::string list;
  for (const Item& item : items) list += (list.empty() ? "" : separator) + Json(item);
  return list;
}

std::string Json(const ScanOutcome::Link& link) {
  return "{" + Text("status", link.Status) + ", " + Number("number", link.Number) + ", " +
         Text("url", link.Url) + "}";
}

std::string Json(const ScanOutcome::Site& site) {
  return "{" + Text("main", site.MainSite) + ", " + Text("site", site.LinkingSite) + ", " +
         Number("expected", site.Expected) + ", " + Number("found", site.Found) + ", " +
         Flag("links_back", site.LinksBack) + ", " + Text("reason", site.Reason) + ", " +
         Member("links", "[" + List(site.Links, ", ") + "]") + "}";
}

std::string Json(const ScanOutcome::Fault& fault) {
  return "{" + Text("error", fault.Error) + ", " + Text("url", fault.Url) + "}";
}

template <class Item>
std::string Lines(const std::vector<Item>& items) {
  return items.empty() ? "[]" : "[\n  " + List(items, ",\n  ") + "\n ]";
}

}  // namespace

std::string JsonOfOutcome(const ScanOutcome& outcome) {
  const SiteCounts counts = CountsOf(outcome);
  const std::string summary =
      "{" + Number("sites", counts.Sites) + ", " + Number("link_back", counts.LinkBack) + ", " +
      Number("missing", counts.Missing) + ", " + Number("not_reached", counts.NotReached) + "}";
  return "{" + Number("format", kJsonFormat) + ",\n " + Text("project", outcome.Project) + ",\n " +
         Text("finished", outcome.Finished) + ",\n " + Flag("complete", outcome.Complete) + ",\n " +
         Member("summary", summary) + ",\n " + Member("sites", Lines(outcome.Sites)) + ",\n " +
         Member("errors", Lines(outcome.Errors)) + "\n}\n";
}

}  // namespace requite
