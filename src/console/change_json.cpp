// SPDX-License-Identifier: MIT
// Changes as a JSON object. A new member may come at any time; "format" rises when one changes its meaning.
#include <algorithm>
#include <ostream>

#include "console/change_output.h"
#include "platform/quoting.h"

namespace requite {
namespace {

/// Members of counts and values of "kind": the words, with "_" for a blank.
std::string Key(ChangeKind kind) {
  std::string words(WordsOf(kind));
  std::replace(words.begin(), words.end(), ' ', '_');
  return words;
}

class ChangeJson {
 public:
  explicit ChangeJson(const TextCodec& codec) : codec_(codec) {}

  [[nodiscard]] std::string List(const ChangeList& list) const {
    const ScanRecord& scan = *list.Scan;
    std::string json =
        "{\"format\": 1, \"project\": " + JsonString(scan.Project) +
        ", \"scan\": {\"id\": " + std::to_string(scan.Id) + ", \"finished\": " + Text(scan.Finished) +
        ", \"complete\": " + (scan.Complete ? "true" : "false") +
        "}, \"compared_with\": " + (list.ComparedWith ? std::to_string(*list.ComparedWith) : "null") +
        ",\n \"counts\": {";
    for (std::size_t i = 0; i < static_cast<std::size_t>(ChangeKind::Same); ++i) {
      const auto kind = static_cast<ChangeKind>(i);
      json += (i == 0 ? "\"" : ", \"") + Key(kind) + "\": " + std::to_string(list.Counts.Of(kind));
    }
    json += "},\n \"changes\": [";
    for (const SiteChange& change : list.Changes) {
      json += (&change == &list.Changes.front() ? "\n  " : ",\n  ") + Change(change);
    }
    return json + "]}";
  }

 private:
  [[nodiscard]] std::string Text(std::string_view text) const { return JsonString(codec_.ToUtf8(text)); }

  [[nodiscard]] std::string Change(const SiteChange& change) const {
    const SiteRecord& site = change.Site;
    const bool removed = change.Kind == ChangeKind::Removed;
    return "{\"kind\": \"" + Key(change.Kind) + "\", \"main\": " + Text(site.Main) +
           ", \"site\": " + Text(site.Host) + ", \"url\": " + Text(site.UrlAfter) +
           ", \"before\": " + (change.Before ? Record(*change.Before) : "null") +
           ", \"now\": " + (removed ? "null" : Record(site)) +
           ", \"since\": " + (removed ? "null" : Text(site.Since)) +
           (change.Acknowledged ? ", \"known\": " + Text(change.Why) : "") + "}";
  }

  [[nodiscard]] std::string Record(const SiteRecord& site) const {
    std::string json = "{\"found\": " + std::to_string(site.Found) +
                       ", \"expected\": " + std::to_string(site.Expected) + ", \"state\": \"" +
                       std::string(WordOf(site.State)) + "\"";
    if (site.Found == 0) return json + ", \"reason\": " + Text(site.Reason) + "}";
    json += ", \"pages\": [";
    for (const LinkRecord& link : site.Links)
      json += (&link == &site.Links.front() ? "" : ", ") + Text(link.Page);
    return json + "]}";
  }

  const TextCodec& codec_;
};

}  // namespace

void PrintJson(const ChangeList& list, const TextCodec& codec, std::ostream& out) {
  out << ChangeJson(codec).List(list) << '\n';
}

}  // namespace requite
